#include "terminal/forms/Transcript.h"

#include <QScrollBar>
#include <QTextCursor>

#include "widgets/WireText.h"

namespace zlt {

Transcript::Transcript(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAnywhere);
    QFont font(QStringLiteral("Courier"));
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    setFont(font);
}

void Transcript::write(std::string_view text) {
    m_text += text;
    m_pending += text;
    if (text.size() > 1 || m_pace.due())
        showPending();
}

void Transcript::showPending() {
    // CR LF is one position in the widget.
    std::erase(m_pending, '\r');
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(shownText(m_pending));
    m_pending.clear();
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    viewport()->repaint();
}

void Transcript::placeCaret() {
    QTextCursor caret(document());
    caret.movePosition(QTextCursor::End);
    caret.movePosition(QTextCursor::PreviousCharacter);
    caret.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    caret.setKeepPositionOnInsert(true);  // what comes next is no part of the selection
    setTextCursor(caret);
}

void Transcript::scrollPages(int pages) {
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(bar.value() + pages * bar.pageStep());
}

void Transcript::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    // What was selected is to be copied by key.
    if (!textCursor().hasSelection())
        emit clicked();
}

QMimeData* Transcript::createMimeDataFromSelection() const {
    return copiedText(textCursor());
}

}  // namespace zlt
