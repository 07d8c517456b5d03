#include "widgets/ReadOut.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <algorithm>
#include <cmath>

#include "widgets/WireText.h"

namespace zlt {
namespace {

// Both carry white text in light and in dark surroundings.
constexpr QColor underWay(0x15, 0x65, 0xc0);
constexpr QColor atFault(0xc6, 0x28, 0x28);

/// Font sizes are reckoned from one at which rounding plays no part.
constexpr int sample = 200;

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

LargeReadOut::LargeReadOut(QWidget* parent) : ReadOut(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    fitText();
}

void LargeReadOut::setDigitHeight(int pixels) {
    m_digitHeight = pixels;
    fitText();
    updateGeometry();
}

void LargeReadOut::setWidestText(const QString& text) {
    m_widestText = text;
    fitText();
    updateGeometry();
}

QFont LargeReadOut::fontOf(int pixelSize) const {
    QFont large = font();
    large.setBold(true);
    large.setPixelSize(pixelSize);
    return large;
}

int LargeReadOut::smallestPixelSize() const {
    const int capital = QFontMetrics(fontOf(sample)).capHeight();
    return static_cast<int>(std::ceil(double(m_digitHeight) * sample / capital));
}

QSize LargeReadOut::sizeHint() const {
    return sizeFor(m_widestText, QFontMetrics(fontOf(smallestPixelSize())));
}

void LargeReadOut::resizeEvent(QResizeEvent* event) {
    ReadOut::resizeEvent(event);
    fitText();
}

void LargeReadOut::fitText() {
    const QFontMetrics metrics(fontOf(sample));
    const QSize text(metrics.horizontalAdvance(m_widestText), metrics.height());
    const QSize frame = sizeFor(m_widestText, metrics) - text;
    const QSize room = size() - frame;
    const double byWidth = double(room.width()) / text.width();
    const double byHeight = double(room.height()) / text.height();
    const int smallest = smallestPixelSize();
    int pixelSize = std::max(smallest, static_cast<int>(std::min(byWidth, byHeight) * sample));
    // Hinting may make some sizes wider than the others.
    while (pixelSize > smallest &&
           QFontMetrics(fontOf(pixelSize)).horizontalAdvance(m_widestText) > room.width())
        --pixelSize;
    if (font().pixelSize() != pixelSize)
        setFont(fontOf(pixelSize));
    // More height than the text can use is left to others.
    setMaximumHeight(
        std::max(sizeHint().height(), static_cast<int>(byWidth * text.height()) + frame.height()));
}

}  // namespace zlt
