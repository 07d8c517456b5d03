#include "widgets/ReadOut.h"

#include <QApplication>
#include <QEvent>

#include "widgets/WireText.h"

namespace zlt {
namespace {

// Both carry white text in light and in dark surroundings.
constexpr QColor underWay(0x15, 0x65, 0xc0);
constexpr QColor atFault(0xc6, 0x28, 0x28);

}  // namespace

ReadOut::ReadOut(QWidget* parent) : NumberField(parent) {
    setReadOnly(true);
    // A value may carry any character of the wire; it is shown, never dropped.
    setMaxLength(64 * 1024);
    colour();
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
    colour();
}

void ReadOut::showState(const ShownState& state) {
    showReply(state.words);
    if (m_meaning == state.meaning)
        return;
    m_meaning = state.meaning;
    colour();
}

void ReadOut::changeEvent(QEvent* event) {
    NumberField::changeEvent(event);
    // A desktop that turns from light to dark takes the read-outs along.
    if (event->type() == QEvent::PaletteChange && !m_colouring)
        colour();
}

void ReadOut::colour() {
    const QPalette theirs = QApplication::palette();
    QPalette ours;
    ours.setColor(QPalette::Base, theirs.color(QPalette::Window));
    if (!m_live) {
        ours.setColor(QPalette::Text, theirs.color(QPalette::Disabled, QPalette::Text));
    } else if (m_meaning != Meaning::atRest) {
        ours.setColor(QPalette::Base, m_meaning == Meaning::atFault ? atFault : underWay);
        ours.setColor(QPalette::Text, Qt::white);
    }
    m_colouring = true;  // what is set here is told by the same event
    setPalette(ours);
    m_colouring = false;
}

}  // namespace zlt
