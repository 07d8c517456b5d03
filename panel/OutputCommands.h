#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include "link/PanelLink.h"
#include "panel/AxisReading.h"
#include "panel/PanelView.h"

namespace zlt {

/// The operator's direct commands to outputs, driver, latch, sync output and S-curve.
class OutputCommands {
 public:
    /// `endDemo` ends the demo moves, which switching the driver off must.
    OutputCommands(const Services& services, PanelLink& link, std::function<void()> endDemo)
        : m_services(services), m_link(link), m_endDemo(std::move(endDemo)) {}

    /// Switches digital output 1 to 3 over, by the controller's word.
    void toggleDigitalOutput(int output);
    /// Switches the output over, by what its lamp shows.
    void toggleOutput(bool shownOn);

    /// Switches the driver; the reply does not matter.
    void switchDriver(bool on);
    /// Asks first, and switches only where the controller says otherwise.
    void askAndSwitchDriver(bool on);

    /// Switches the latch over, by the controller's word. What was sent, for its mark.
    bool toggleLatch();
    /// Sends condition, position and the switch. Throws BadField when the position is no number:
    /// nothing has been sent then, but switching off is. Either way the mark is to be off.
    void switchSync(bool on, const SyncFields& fields);

    /// Sends the S-curve, moving or not; the reply does not matter.
    void sendScurve(bool on);
    /// The same only at rest; `motionShown` is what `Stat` shows. A moving axis and a refusal are
    /// told in a message. Whether it is set now.
    bool setScurve(bool on, MotionState motionShown);

 private:
    /// Asks for a present state and switches to the other one. The controller's word counts,
    /// never what the screen shows; whatever is not 0 counts as on. Returns what was sent.
    bool toggle(std::string_view query, std::string_view setting);

    const Services& m_services;
    PanelLink& m_link;
    std::function<void()> m_endDemo;
};

}  // namespace zlt
