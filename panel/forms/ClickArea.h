#pragma once

#include <QAbstractButton>

namespace zlt {

/// A button without a face of its own: a click anywhere on what it holds is its click.
class ClickArea : public QAbstractButton {
    Q_OBJECT

 public:
    explicit ClickArea(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void childEvent(QChildEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace zlt
