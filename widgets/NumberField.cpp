#include "widgets/NumberField.h"

#include <QStyleOptionFrame>

namespace zlt {

QSize NumberField::sizeHint() const {
    return {sizeFor(longestNumber(), fontMetrics()).width(), QLineEdit::sizeHint().height()};
}

QSize NumberField::sizeFor(const QString& text, const QFontMetrics& metrics) const {
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    // QLineEdit keeps two pixels free on either side of the text, and one for the cursor; one above
    // and below.
    constexpr QSize aroundText(6, 2);
    const QSize contents = QSize(metrics.horizontalAdvance(text), metrics.height()) + aroundText;
    return style()->sizeFromContents(QStyle::CT_LineEdit, &frame, contents, this);
}

}  // namespace zlt
