#include "widgets/LargeReadOut.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

namespace zlt {
namespace {

/// Font sizes are reckoned from one at which rounding plays no part.
constexpr int sample = 200;

}  // namespace

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
