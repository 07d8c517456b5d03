#include "widgets/NumberField.h"

#include <QStyleOptionFrame>

namespace zlt {

QSize NumberField::sizeHint() const {
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    // QLineEdit keeps two pixels free on either side of the text, and one for the cursor.
    constexpr int aroundText = 6;
    const int text = fontMetrics().horizontalAdvance(QStringLiteral("-2147483648"));
    const QSize contents(text + aroundText, QLineEdit::sizeHint().height());
    const QSize whole = style()->sizeFromContents(QStyle::CT_LineEdit, &frame, contents, this);
    return {whole.width(), contents.height()};
}

}  // namespace zlt
