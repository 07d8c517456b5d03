#include "widgets/Lamp.h"

#include <QPainter>
#include <algorithm>

#include "widgets/ReadOut.h"

namespace zlt {

Lamp::Lamp(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleDescription(tr("off"));
}

void Lamp::setLit(bool lit) {
    if (m_lit == lit)
        return;
    m_lit = lit;
    setAccessibleDescription(lit ? tr("on") : tr("off"));
    update();
}

void Lamp::setColour(const QColor& colour) {
    m_colour = colour;
    update();
}

void Lamp::setLive(bool live) {
    if (m_live == live)
        return;
    m_live = live;
    update();
}

QSize Lamp::sizeHint() const {
    const int height = fontMetrics().height();
    return {height * 3 / 2, height};
}

void Lamp::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!m_live)
        painter.setOpacity(dimmedOpacity);
    constexpr qreal rim = 1.5;
    constexpr qreal corner = 3;
    const qreal above = height() / 6.0;
    const QRectF bar = QRectF(rect()).adjusted(rim, above, -rim, -above);
    painter.setPen(QPen(palette().color(QPalette::WindowText), rim));
    painter.setBrush(m_lit ? QBrush(m_colour) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(bar, corner, corner);
}

StatusBox::StatusBox(QWidget* parent) : QLabel(parent) {
    setAlignment(Qt::AlignCenter);
    setTextFormat(Qt::PlainText);
    setMargin(4);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

void StatusBox::setColour(const QColor& background) {
    QPalette colours = palette();
    colours.setColor(QPalette::Window, background);
    // Perceived brightness, the usual weights.
    const int brightness =
        (299 * background.red() + 587 * background.green() + 114 * background.blue()) / 1000;
    colours.setColor(QPalette::WindowText, brightness >= 128 ? Qt::black : Qt::white);
    setPalette(colours);
    setAutoFillBackground(true);
}

QSize StatusBox::sizeHint() const {
    QSize size = QLabel::sizeHint();
    size.setWidth(fontMetrics().horizontalAdvance(QStringLiteral("No Communication")) +
                  4 * margin() + 16);
    return size;
}

}  // namespace zlt
