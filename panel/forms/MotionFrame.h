#pragma once

#include <QGroupBox>
#include <functional>
#include <memory>

#include "link/Values.h"
#include "panel/MotionCommands.h"
#include "panel/OutputCommands.h"
#include "widgets/Handlers.h"

namespace Ui {
class MotionFrame;
}

class QLineEdit;

namespace zlt {

/// The "Control" frame: speed, jog, moves, homing, driver, S-curve and the counters.
class MotionFrame : public QGroupBox, public MotionView {
    Q_OBJECT

 public:
    explicit MotionFrame(QWidget* parent = nullptr);
    ~MotionFrame() override;

    void showSpeed(std::string_view speed);
    void showAcceleration(std::string_view acceleration);
    void showDriverEnabled(bool enabled);
    void showDemo(bool on);
    void showLive(bool live);
    /// Clears the S-curve's mark: the operator's last click was another device's.
    void clearMarks();
    /// Enables the HL and L homing where the firmware has it.
    void gateFeatures(FirmwareVersion firmware);

    /// Connects the buttons and check boxes to the rules; `motionShown` is what `Stat` shows.
    void connectTo(Handlers& handlers, MotionCommands& motion, OutputCommands& outputs,
                   const std::function<MotionState()>& motionShown);

    std::string typed(Box box) const override;
    std::string typedForWire(Box box) const override;
    void fill(Box box, std::string_view text) override;
    void pointTo(Box box) override;

    const Ui::MotionFrame& controls() const { return *m_ui; }

 protected:
    void changeEvent(QEvent* event) override;

 private:
    QLineEdit& field(Box box) const;

    std::unique_ptr<Ui::MotionFrame> m_ui;
};

}  // namespace zlt
