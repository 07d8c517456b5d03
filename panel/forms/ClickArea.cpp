#include "panel/forms/ClickArea.h"

#include <QChildEvent>
#include <QLayout>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace zlt {

ClickArea::ClickArea(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

QSize ClickArea::sizeHint() const {
    return layout() ? layout()->sizeHint() : QSize(16, 16);
}

void ClickArea::childEvent(QChildEvent* event) {
    if (event->added())
        if (auto* child = qobject_cast<QWidget*>(event->child()))
            child->setAttribute(Qt::WA_TransparentForMouseEvents);
    QAbstractButton::childEvent(event);
}

void ClickArea::paintEvent(QPaintEvent*) {
    if (!hasFocus())
        return;
    QStylePainter painter(this);
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

}  // namespace zlt
