#pragma once

#include <chrono>
#include <functional>

#include "link/ScreenLink.h"

namespace zlt {

/// Is told what becomes of the main screen's link beyond what every screen is told.
class PanelLinkListener : public LinkListener {
 public:
    /// The poll is held off from now on.
    virtual void pollHeldOff() = 0;
    /// The port cannot be opened again after a loan.
    virtual void portNotTakenBack() = 0;
};

/// The main screen's link, which its frames share.
class PanelLink : public ScreenLink {
 public:
    PanelLink(const Services& services, PanelLinkListener& listener);

    [[nodiscard]] LinkHandOver handOver() const;

    /// Lets go of the port for the time of `action` (another screen, a tool) and takes it
    /// back, whatever the action met: the poll is held off, the port closed if it is this
    /// screen's, and opened again afterwards. `settling` is waited before and after the
    /// closing, and after the opening.
    void lendPort(const std::function<void()>& action, std::chrono::milliseconds settling = {});

    /// Whether the status poll is held off, while another screen or a tool has the port, or a
    /// file dialog is up.
    [[nodiscard]] bool PollPaused() const { return m_pollPaused; }

    FirmwareVersion firmware;

 private:
    friend class PollPause;
    void takeBack(std::chrono::milliseconds settling);

    const Services& m_services;
    PanelLinkListener& m_listener;
    bool m_pollPaused = false;
};

/// Holds the status poll off while it lives.
class PollPause {
 public:
    explicit PollPause(PanelLink& link) : m_link(link) {
        m_link.m_pollPaused = true;
        m_link.m_listener.pollHeldOff();
    }
    ~PollPause() { m_link.m_pollPaused = false; }
    PollPause(const PollPause&) = delete;
    PollPause& operator=(const PollPause&) = delete;

 private:
    PanelLink& m_link;
};

}  // namespace zlt
