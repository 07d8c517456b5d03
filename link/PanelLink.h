#pragma once

#include "link/ScreenLink.h"

namespace zlt {

/// The main screen's link, which its frames share.
class PanelLink : public ScreenLink {
 public:
    PanelLink(const Services& services, LinkListener* listener)
        : ScreenLink(services, flavours::controlPanel, listener) {}

    /// Holds the status poll off while another screen or a tool has the port, or a file
    /// dialog is up.
    bool PollPaused = false;
    FirmwareVersion firmware;
};

}  // namespace zlt
