#pragma once

#include <QTextDocument>
#include <optional>
#include <string>

#include "link/Services.h"
#include "programs/UnsavedTexts.h"

namespace zlt {

/// The program text with its undo steps, from one connect to the next. While it is not saved it is
/// kept for the next start too, before anything that may end the program.
class ProgramDraft {
 public:
    /// Keeps the text at the program's end from here on. `services` outlives the draft.
    explicit ProgramDraft(const Services& services);
    ~ProgramDraft();
    ProgramDraft(const ProgramDraft&) = delete;
    ProgramDraft& operator=(const ProgramDraft&) = delete;

    /// What the program box shows, over one connect or several.
    QTextDocument& document() { return m_document; }

    /// The text stands in a file, or the operator has dropped it.
    void markSaved();
    /// Writes a text that is not saved into the user's data folder. Returns why that failed.
    std::optional<WriteFailure> keep();

    /// Whether a text is there that an earlier run has kept.
    [[nodiscard]] bool anyKept() const { return m_texts.left().has_value(); }
    /// Takes that text up, not saved; undo brings the one before back. Throws std::runtime_error,
    /// a sentence in UTF-8, when it cannot be read.
    void openKept();
    void dropKept();

 private:
    [[nodiscard]] std::string unsavedText() const;

    const Services& m_services;
    QTextDocument m_document;
    UnsavedTexts m_texts;
};

/// Replaces the whole text in one step that undo takes back.
void replaceText(QTextDocument& document, const QString& text);

}  // namespace zlt
