#include "parameters/forms/ChangeMark.h"

#include <QPainter>
#include <algorithm>

namespace zlt {

ChangeMark::ChangeMark(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ChangeMark::showStanding(Standing standing, const QString& reason) {
    setToolTip(reason);
    if (m_standing == standing)
        return;
    m_standing = standing;
    update();
}

QSize ChangeMark::sizeHint() const {
    const int side = fontMetrics().height() * 2 / 3;
    return {side, side};
}

void ChangeMark::paintEvent(QPaintEvent*) {
    if (m_standing == Standing::same || m_standing == Standing::lacking)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal ring = 1.5;
    const qreal side = std::min(width(), height()) - 2 * ring;
    const QRectF circle((width() - side) / 2, (height() - side) / 2, side, side);
    if (m_standing == Standing::refused) {
        painter.setPen(QPen(palette().color(QPalette::WindowText), 2 * ring));
        const QRectF cross = circle.adjusted(ring, ring, -ring, -ring);
        painter.drawLine(cross.topLeft(), cross.bottomRight());
        painter.drawLine(cross.topRight(), cross.bottomLeft());
        return;
    }
    const bool differs = m_standing == Standing::differs;
    const QColor colour = palette().color(differs ? QPalette::Highlight : QPalette::WindowText);
    painter.setPen(QPen(colour, ring));
    painter.setBrush(differs ? QBrush(colour) : QBrush(Qt::NoBrush));
    painter.drawEllipse(circle);
}

}  // namespace zlt
