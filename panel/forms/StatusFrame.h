#pragma once

#include <QGroupBox>
#include <memory>

#include "panel/AxisReading.h"
#include "panel/MotionCommands.h"
#include "panel/PanelView.h"
#include "widgets/Handlers.h"

namespace Ui {
class StatusFrame;
}

namespace zlt {

/// What the poll reads: the axis and the program, as they are now.
class StatusFrame : public QGroupBox {
    Q_OBJECT

 public:
    /// The rules are used as long as the controls are worked.
    StatusFrame(Handlers& handlers, MotionCommands& motion, QWidget* parent);
    ~StatusFrame() override;

    void showState(const PanelState& state);
    /// Shows what of it is this frame's; a field without a value stays as it stands.
    void showReading(const AxisReading& reading);
    /// Empties move mode, program line and program state.
    void forgetProgram();

 private:
    void showStatus(const StatusWord& status);
    void showProgram(const AxisReading::Program& program);

    std::unique_ptr<Ui::StatusFrame> m_ui;
};

}  // namespace zlt
