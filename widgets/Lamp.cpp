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

}  // namespace zlt
