#pragma once

#include <functional>

#include "widgets/Screen.h"

namespace zlt {

class StopBox;

/// A screen over the panel that talks to the controller over a port of its own, and so has a stop
/// of its own.
class LinkedScreen : public Screen {
    Q_OBJECT

 public:
    using Screen::Screen;

    /// Whether the operator stopped the axis from here.
    bool stoppedAxis() const { return m_stoppedAxis; }

 protected:
    /// Connects the screen's stop, for the device that its link addresses. `abort` sends "ABORT",
    /// whatever the link's flags say.
    void connectAbort(StopBox& box, std::string_view deviceId, std::function<void()> abort);
    void noteAxisStopped() { m_stoppedAxis = true; }

 private:
    bool m_stoppedAxis = false;
};

}  // namespace zlt
