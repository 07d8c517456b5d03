#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "link/PanelLink.h"

namespace zlt {

/// Starts, stops, pauses and continues the controller's program as a whole, and sets whether
/// it starts by itself at power-up.
class RunControl {
 public:
    /// `sendMotionCommand` sends speed and acceleration, then the command.
    RunControl(PanelLink& link, std::function<void(std::string_view)> sendMotionCommand)
        : m_link(link), m_sendMotionCommand(std::move(sendMotionCommand)) {}

    void RunProg_Click() { m_link.SendReceive("SR=1"); }
    void StopProg_Click();
    void PauseProg_Click() { m_link.SendReceive("SR=2"); }
    void ContProg_Click() { m_link.SendReceive("SR=3"); }

    /// Sets the start at power-up and returns what the controller then says of it; nothing when
    /// it says nothing. Throws ConversionError for a reply that is no number.
    std::optional<bool> setRunOnBoot(bool on);

 private:
    PanelLink& m_link;
    std::function<void(std::string_view)> m_sendMotionCommand;
};

}  // namespace zlt
