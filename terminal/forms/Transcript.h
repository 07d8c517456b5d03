#pragma once

#include <QPlainTextEdit>
#include <string>
#include <string_view>

#include "terminal/TerminalTalk.h"
#include "terminal/forms/PaintPace.h"

namespace zlt {

/// The growing transcript of a terminal, to be read, selected and copied. Its text is kept
/// beside the widget, which would turn some characters into others.
class Transcript : public QPlainTextEdit, public TranscriptView {
    Q_OBJECT

 public:
    explicit Transcript(QWidget* parent = nullptr);

    void add(std::string_view text) override;
    void grow(char character) override;

    /// Puts the caret on the last line, its end selected.
    void placeCaret();

    /// The whole transcript, Latin-1, with CR LF behind each line.
    const std::string& text() const { return m_text; }

 protected:
    QMimeData* createMimeDataFromSelection() const override;

 private:
    void showPending();

    std::string m_text;
    std::string m_pending;  ///< the part of it that the widget does not show yet
    PaintPace m_pace;
};

}  // namespace zlt
