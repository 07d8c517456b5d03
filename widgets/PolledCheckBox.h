#pragma once

#include <QCheckBox>

namespace zlt {

/// A check box that the poll sets and the operator clicks. The poll keeps off it from the
/// press to the release, wherever the pointer strays meanwhile: a click means the opposite of
/// what stood there when it began.
class PolledCheckBox : public QCheckBox {
    Q_OBJECT

 public:
    explicit PolledCheckBox(QWidget* parent = nullptr) : QCheckBox(parent) {}

    /// Shows what the controller says, unless the operator is just clicking.
    void showState(bool checked);

    /// Dims mark and words while the controller does not answer; it can be clicked all the same.
    void setLive(bool live);

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    bool m_pressed = false;
    bool m_live = true;
};

}  // namespace zlt
