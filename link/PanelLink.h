#pragma once

#include <chrono>
#include <functional>

#include "link/ScreenLink.h"

namespace zlt {

/// The main screen's link, which its frames share.
class PanelLink : public ScreenLink {
 public:
    /// `portNotTakenBack` is called when the port cannot be opened again behind a loan.
    PanelLink(const Services& services, LinkListener* listener,
              std::function<void()> portNotTakenBack);

    LinkHandOver handOver() const;

    /// Lets go of the port for the time of `action` (another screen, a tool) and takes it
    /// back, whatever the action met: the poll is held off, the port closed if it is this
    /// screen's, and opened again afterwards. `settling` is waited before and behind the
    /// closing, and behind the opening.
    void lendPort(const std::function<void()>& action, std::chrono::milliseconds settling = {});

    /// Holds the status poll off while another screen or a tool has the port, or a file
    /// dialog is up.
    bool PollPaused = false;
    FirmwareVersion firmware;

 private:
    void takeBack(std::chrono::milliseconds settling);

    const Services& m_services;
    std::function<void()> m_portNotTakenBack;
};

/// Holds the status poll off while it lives.
class PollPause {
 public:
    explicit PollPause(PanelLink& link) : m_link(link) { m_link.PollPaused = true; }
    ~PollPause() { m_link.PollPaused = false; }
    PollPause(const PollPause&) = delete;
    PollPause& operator=(const PollPause&) = delete;

 private:
    PanelLink& m_link;
};

}  // namespace zlt
