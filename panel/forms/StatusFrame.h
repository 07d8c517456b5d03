#pragma once

#include <QGroupBox>
#include <memory>

#include "panel/AxisReading.h"

namespace Ui {
class StatusFrame;
}

namespace zlt {

/// What the poll reads: the axis and the program, as they are now.
class StatusFrame : public QGroupBox {
    Q_OBJECT

 public:
    explicit StatusFrame(QWidget* parent = nullptr);
    ~StatusFrame() override;

    /// Shows what of it is this frame's; a field without a value stays as it stands.
    void showReading(const AxisReading& reading);
    /// Empties move mode, program line and program state.
    void forgetProgram();
    void showLive(bool live);

    /// What `Stat` shows.
    MotionState motionShown() const { return m_motionShown; }

 private:
    void showStatus(const StatusWord& status);
    void showProgram(const AxisReading::Program& program);

    std::unique_ptr<Ui::StatusFrame> m_ui;
    MotionState m_motionShown = MotionState::idle;
};

}  // namespace zlt
