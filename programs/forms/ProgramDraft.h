#pragma once

#include <QTextDocument>
#include <optional>
#include <string>

#include "link/Services.h"
#include "programs/ProgramFile.h"
#include "programs/UnsavedTexts.h"
#include "programs/forms/ProgramHighlighter.h"

namespace zlt {

/// How the operator has set up the program editor, for this run of the program.
struct EditorSettings {
    int tabBlanks = 4;  ///< what the Tab key fills up to; 0: it moves on to the next control
    int zoom = 0;       ///< points over the font's own size
};

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
    ProgramHighlighter& highlighter() { return m_highlighter; }
    /// The file that the text belongs to.
    ProgramFile& file() { return m_file; }
    EditorSettings& editorSettings() { return m_editorSettings; }

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
    const Services& m_services;
    QTextDocument m_document;
    ProgramHighlighter m_highlighter{m_document};
    ProgramFile m_file;
    EditorSettings m_editorSettings;
    UnsavedTexts m_texts;
};

/// The whole text, each line end one character, a paragraph separator: so its places are those of a
/// cursor. Characters stay as they are; the plain text turns a no-break space into a blank.
QString wholeText(const QTextDocument& document);
/// The same with CR LF for a line end.
QString wholeTextWithLineEnds(const QTextDocument& document);

/// Replaces the whole text in one step that undo takes back.
void replaceText(QTextDocument& document, const QString& text);

}  // namespace zlt
