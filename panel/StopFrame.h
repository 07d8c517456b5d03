#pragma once

#include <QFrame>
#include <memory>

namespace Ui {
class StopFrame;
}

namespace zlt {

/// The two stops, large and always in the same place.
class StopFrame : public QFrame {
    Q_OBJECT

 public:
    explicit StopFrame(QWidget* parent = nullptr);
    ~StopFrame() override;

    /// Whether a stop is pressed and not yet released.
    bool stopHeldDown() const;

 private:
    std::unique_ptr<Ui::StopFrame> m_ui;
};

}  // namespace zlt
