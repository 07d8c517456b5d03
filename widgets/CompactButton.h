#pragma once

#include <QPushButton>
#include <algorithm>

namespace zlt {

/// A push button that is no wider than its caption asks for, where several stand in a row.
class CompactButton : public QPushButton {
    Q_OBJECT

 public:
    explicit CompactButton(QWidget* parent = nullptr) : QPushButton(parent) {}

    QSize sizeHint() const override {
        constexpr int besideCaption = 24;
        const int caption = fontMetrics().horizontalAdvance(text()) + besideCaption;
        const QSize size = QPushButton::sizeHint();
        return {std::min(size.width(), std::max(caption, size.height() + besideCaption / 2)),
                size.height()};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace zlt
