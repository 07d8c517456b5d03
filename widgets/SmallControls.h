#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace zlt {

/// A push button that is no wider than its caption asks for, where several stand in a row.
class CompactButton : public QPushButton {
    Q_OBJECT

 public:
    explicit CompactButton(QWidget* parent = nullptr) : QPushButton(parent) {}

    [[nodiscard]] QSize sizeHint() const override {
        constexpr int besideCaption = 24;
        const int caption = fontMetrics().horizontalAdvance(text()) + besideCaption;
        const QSize size = QPushButton::sizeHint();
        return {std::min(size.width(), std::max(caption, size.height() + besideCaption / 2)),
                size.height()};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

/// A label for a text from outside: it asks for the text's width up to some thirty characters
/// and shows the front of a longer one, all of it in its tooltip.
class ElidingLabel : public QLabel {
    Q_OBJECT

 public:
    explicit ElidingLabel(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    [[nodiscard]] QString elided() const;
};

/// A button without a face of its own: a click anywhere on what it holds is its click.
class ClickArea : public QAbstractButton {
    Q_OBJECT

 public:
    explicit ClickArea(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void childEvent(QChildEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace zlt
