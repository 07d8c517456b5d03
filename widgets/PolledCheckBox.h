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
    void showState(bool checked) {
        if (!m_pressed && !isDown())
            setChecked(checked);
    }

 protected:
    void mousePressEvent(QMouseEvent* event) override {
        m_pressed = true;
        QCheckBox::mousePressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        QCheckBox::mouseReleaseEvent(event);
        m_pressed = false;
    }

 private:
    bool m_pressed = false;
};

}  // namespace zlt
