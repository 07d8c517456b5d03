#include "widgets/StatusBox.h"

namespace zlt {

StatusBox::StatusBox(QWidget* parent) : QLabel(parent) {
    setAlignment(Qt::AlignCenter);
    setTextFormat(Qt::PlainText);
    setMargin(4);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

void StatusBox::setColour(const QColor& background) {
    QPalette colours = palette();
    colours.setColor(QPalette::Window, background);
    // Perceived brightness, the usual weights.
    const int brightness =
        (299 * background.red() + 587 * background.green() + 114 * background.blue()) / 1000;
    colours.setColor(QPalette::WindowText, brightness >= 128 ? Qt::black : Qt::white);
    setPalette(colours);
    setAutoFillBackground(true);
}

QSize StatusBox::sizeHint() const {
    QSize size = QLabel::sizeHint();
    size.setWidth(fontMetrics().horizontalAdvance(QStringLiteral("No Communication")) +
                  4 * margin() + 16);
    return size;
}

}  // namespace zlt
