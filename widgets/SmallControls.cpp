#include "widgets/SmallControls.h"

#include <QChildEvent>
#include <QHelpEvent>
#include <QLayout>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QToolTip>
#include <algorithm>

namespace zlt {
namespace {

constexpr int widestInCharacters = 30;

}  // namespace

ElidingLabel::ElidingLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QSize ElidingLabel::sizeHint() const {
    const int most = widestInCharacters * fontMetrics().averageCharWidth();
    return {std::min(fontMetrics().horizontalAdvance(text().left(200)), most) + 2,
            fontMetrics().height()};
}

QSize ElidingLabel::minimumSizeHint() const {
    return {std::min(sizeHint().width(), 6 * fontMetrics().averageCharWidth()),
            fontMetrics().height()};
}

QString ElidingLabel::elided() const {
    return fontMetrics().elidedText(text().left(200).simplified(), Qt::ElideRight, width());
}

bool ElidingLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && elided() != text()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           QStringLiteral("<p>%1</p>").arg(text().left(1000).toHtmlEscaped()),
                           this);
        return true;
    }
    return QLabel::event(event);
}

void ElidingLabel::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    painter.drawItemText(rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(),
                         isEnabled(), elided(), foregroundRole());
}

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
