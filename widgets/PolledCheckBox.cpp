#include "widgets/PolledCheckBox.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "widgets/ReadOut.h"

namespace zlt {

void PolledCheckBox::showState(bool checked) {
    if (!m_pressed && !isDown())
        setChecked(checked);
}

void PolledCheckBox::setLive(bool live) {
    if (m_live == live)
        return;
    m_live = live;
    update();
}

void PolledCheckBox::mousePressEvent(QMouseEvent* event) {
    m_pressed = true;
    QCheckBox::mousePressEvent(event);
}

void PolledCheckBox::mouseReleaseEvent(QMouseEvent* event) {
    QCheckBox::mouseReleaseEvent(event);
    m_pressed = false;
}

void PolledCheckBox::paintEvent(QPaintEvent* event) {
    if (m_live) {
        QCheckBox::paintEvent(event);
        return;
    }
    // By way of a picture: a style may set an opacity of its own, or paint past ours.
    QPixmap picture(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QStyleOptionButton option;
    initStyleOption(&option);
    QPainter onPicture(&picture);
    style()->drawControl(QStyle::CE_CheckBox, &option, &onPicture, this);
    onPicture.end();
    QPainter painter(this);
    painter.setOpacity(dimmedOpacity);
    painter.drawPixmap(0, 0, picture);
}

}  // namespace zlt
