#pragma once

#include <QGroupBox>
#include <memory>
#include <string_view>

#include "link/Values.h"

namespace Ui {
class MotionFrame;
}

namespace zlt {

/// The "Control" frame: speed, jog, moves, homing, driver, S-curve and the counters.
class MotionFrame : public QGroupBox {
    Q_OBJECT

 public:
    explicit MotionFrame(QWidget* parent = nullptr);
    ~MotionFrame() override;

    void showSpeed(std::string_view speed);
    void showAcceleration(std::string_view acceleration);
    void showDriverEnabled(bool enabled);
    void showDemo(bool on);
    void showLive(bool live);
    /// Enables the HL and L homing where the firmware has it.
    void gateFeatures(FirmwareVersion firmware);

    const Ui::MotionFrame& controls() const { return *m_ui; }

 private:
    std::unique_ptr<Ui::MotionFrame> m_ui;
};

}  // namespace zlt
