#pragma once

#include <string_view>

#include "panel/AxisReading.h"
#include "panel/PanelState.h"

namespace zlt {

/// Is handed what the control panel's rules have to show. Texts are Latin-1.
class PanelView {
 public:
    virtual ~PanelView() = default;

    /// Paints at once what the link has become, and that the values are not live any more, without
    /// events: the exchanges that follow may block for long.
    virtual void showState(const PanelState& state) = 0;
    /// Shows what a pass of the poll has read; a field without a value stays as it stands.
    virtual void showReading(const AxisReading& reading) = 0;

    /// What the load has read for the operator's boxes.
    virtual void fillSettings(std::string_view speed, std::string_view acceleration) = 0;
    /// Puts the synchronisation output's condition and position back to "=" and "0".
    virtual void resetSync() = 0;
    /// Another device is worked from now on: what says something of the operator's last click at
    /// the one before goes.
    virtual void deviceSwitched(std::string_view before, std::string_view now) = 0;
    /// Empties what belongs to the program: nobody says it any more.
    virtual void forgetProgram() = 0;
};

}  // namespace zlt
