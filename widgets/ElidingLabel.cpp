#include "widgets/ElidingLabel.h"

#include <QHelpEvent>
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

}  // namespace zlt
