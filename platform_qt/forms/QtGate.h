#pragma once

#include <QPlainTextEdit>

#include "platform/Gate.h"
#include "platform/System.h"

namespace zlt {

/// A text of any length to be read, selected and copied, shown at once: only what is in view is
/// laid out.
class LongTextView : public QPlainTextEdit {
 public:
    LongTextView(const QString& text, QWidget* parent);

 protected:
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
};

/// Shows messages, questions and file choices in Qt's own boxes, over the screen in front.
class QtGate final : public Gate {
 public:
    void message(std::string_view text) override;
    bool ask(std::string_view title, std::string_view text) override;
    std::optional<std::string> chooseToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseToSave(const FileChoice& choice) override;
};

/// Hands help files to the program that the desktop has for them.
class QtHelpViewer final : public HelpViewer {
 public:
    explicit QtHelpViewer(Gate& gate) : m_gate(gate) {}

    void openContents(const std::filesystem::path& file) override;

 private:
    Gate& m_gate;
};

}  // namespace zlt
