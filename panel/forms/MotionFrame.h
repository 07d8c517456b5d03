#pragma once

#include <QGroupBox>
#include <array>
#include <functional>
#include <memory>

#include "panel/AxisReading.h"
#include "panel/MotionCommands.h"
#include "panel/OutputCommands.h"
#include "panel/PanelSession.h"
#include "panel/PanelView.h"
#include "widgets/Handlers.h"

namespace Ui {
class MotionFrame;
}

class QAbstractButton;
class QLineEdit;

namespace zlt {

/// The "Control" frame: speed, jog, moves, homing, driver, S-curve and the counters.
class MotionFrame : public QGroupBox {
    Q_OBJECT

 public:
    /// The rules are used as long as the controls are worked.
    MotionFrame(Handlers& handlers, PanelSession& session, MotionCommands& motion,
                OutputCommands& outputs, QWidget* parent);
    ~MotionFrame() override;

    /// Runs a command on what stands in the boxes and shows what it fills an empty one with. Puts
    /// the cursor into the box of a BadField, which is passed on.
    void withFields(const std::function<void(MotionFields&)>& command);

    void showState(const PanelState& state);
    void showReading(const AxisReading& reading);
    void fillSettings(std::string_view speed, std::string_view acceleration);
    /// Clears the S-curve's mark: the operator's last click was another device's.
    void clearMarks();
    /// Puts the cursor into the speed.
    void focusSpeed();

 protected:
    void changeEvent(QEvent* event) override;

 private:
    struct CommandButton {
        QAbstractButton* button;
        std::string_view command;
    };
    /// Buttons whose command goes out after speed and acceleration.
    [[nodiscard]] std::array<CommandButton, 11> motionButtons() const;
    /// The same for the homing that older firmware lacks.
    [[nodiscard]] std::array<CommandButton, 4> hlHomingButtons() const;
    /// Buttons whose command goes out alone.
    [[nodiscard]] std::array<CommandButton, 2> plainButtons() const;
    void connectMotion(Handlers& handlers, MotionCommands& motion);
    void connectOutputs(Handlers& handlers, PanelSession& session, OutputCommands& outputs);

    [[nodiscard]] QLineEdit& field(PanelField box) const;
    void colourDemo();
    /// Enables the HL and L homing where the firmware has it.
    void gateFeatures(FirmwareVersion firmware);

    std::unique_ptr<Ui::MotionFrame> m_ui;
    bool m_demoShown = false;
};

}  // namespace zlt
