#include "widgets/ReadOut.h"

#include "widgets/WireText.h"

namespace zlt {

ReadOut::ReadOut(QWidget* parent) : NumberField(parent) {
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

}  // namespace zlt
