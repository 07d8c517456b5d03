#include "app/Picture.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace zlt {
namespace {

/// The drawing's own units: a square flange of 100 by 100 around the shaft. The icon in
/// packaging/zlt-panel.svg is the same drawing.
constexpr qreal extent = 124;

void drawFlange(QPainter& painter) {
    painter.setBrush(QColor(0x37, 0x47, 0x4f));
    painter.drawRoundedRect(QRectF(-50, -50, 100, 100), 12, 12);
    painter.setBrush(QColor(0x26, 0x32, 0x38));
    for (const QPointF corner :
         {QPointF(-38, -38), QPointF(38, -38), QPointF(-38, 38), QPointF(38, 38)})
        painter.drawEllipse(corner, 5, 5);
    painter.setBrush(QColor(0x54, 0x6e, 0x7a));
    painter.drawEllipse(QPointF(0, 0), 34, 34);
}

void drawTeeth(QPainter& painter) {
    painter.setBrush(QColor(0x90, 0xa4, 0xae));
    constexpr int teeth = 25;
    for (int tooth = 0; tooth < teeth; ++tooth) {
        painter.save();
        painter.rotate(360.0 * tooth / teeth);
        painter.drawRect(QRectF(-1.4, -32, 2.8, 5));
        painter.restore();
    }
}

void drawShaft(QPainter& painter) {
    QPainterPath shaft;
    shaft.addEllipse(QPointF(0, 0), 12, 12);
    QPainterPath flat;
    flat.addRect(QRectF(-12, -14, 24, 6));
    painter.setBrush(QColor(0xec, 0xef, 0xf1));
    painter.drawPath(shaft.subtracted(flat));
}

/// Where the axis goes: an arc with an arrow head.
void drawArrow(QPainter& painter) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0xff, 0xb3, 0x00), 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(-22, -22, 44, 44), 200 * 16, 220 * 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xff, 0xb3, 0x00));
    painter.rotate(-60);
    painter.drawPolygon(QPolygonF({{22 - 7, 0}, {22 + 7, 0}, {22, -11}}));
}

void drawMotor(QPainter& painter, QSizeF size) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(size.width() / 2, size.height() / 2);
    const qreal scale = std::min(size.width(), size.height()) / extent;
    painter.scale(scale, scale);
    painter.setPen(Qt::NoPen);
    drawFlange(painter);
    drawTeeth(painter);
    drawShaft(painter);
    drawArrow(painter);
}

}  // namespace

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawMotor(painter, size());
}

QIcon Picture::icon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        drawMotor(painter, pixmap.size());
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace zlt
