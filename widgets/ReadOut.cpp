#include "widgets/ReadOut.h"

#include "widgets/WireText.h"

namespace zlt {

ReadOut::ReadOut(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    // A value may carry any character of the wire; it is shown, never dropped.
    setMaxLength(64 * 1024);
}

void ReadOut::showReply(std::string_view reply) {
    const QString shown = shownText(reply);
    if (text() == shown)
        return;
    setText(shown);
    setCursorPosition(0);  // the front of a long value
}

void ReadOut::setLive(bool live) {
    if (m_live == live)
        return;
    m_live = live;
    QPalette dimmed;
    dimmed.setColor(QPalette::Text, palette().color(QPalette::Disabled, QPalette::Text));
    setPalette(live ? QPalette() : dimmed);
}

QSize ReadOut::sizeHint() const {
    // The longest number that a controller reports, with the frame around it.
    const int text = fontMetrics().horizontalAdvance(QStringLiteral("-2147483648 "));
    QSize size = QLineEdit::sizeHint();
    size.setWidth(text + size.height() / 2 + 8);
    return size;
}

}  // namespace zlt
