#include "widgets/Lamp.h"

#include <QPainter>
#include <algorithm>

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
    const int side = fontMetrics().height();
    return {side, side};
}

void Lamp::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!m_live)
        painter.setOpacity(0.4);
    constexpr qreal ring = 1.5;
    const qreal side = std::min(width(), height()) - 2 * ring;
    const QRectF circle((width() - side) / 2, (height() - side) / 2, side, side);
    painter.setPen(QPen(palette().color(QPalette::WindowText), ring));
    painter.setBrush(m_lit ? QBrush(m_colour) : QBrush(Qt::NoBrush));
    painter.drawEllipse(circle);
}

}  // namespace zlt
