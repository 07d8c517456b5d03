#pragma once

#include <QIcon>
#include <QWidget>

namespace zlt {

/// The start-up screen's picture: a stepper motor from the shaft's end.
class Picture : public QWidget {
    Q_OBJECT

 public:
    explicit Picture(QWidget* parent = nullptr) : QWidget(parent) {}

    /// The same motor, for windows and task bars.
    static QIcon icon();

    [[nodiscard]] QSize sizeHint() const override { return {150, 180}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {120, 150}; }

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace zlt
