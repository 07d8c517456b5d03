#pragma once

#include <string>

#include "link/PanelLink.h"
#include "panel/PanelView.h"

namespace zlt {

/// One run of the control panel, from its load to its close: the rules of identification,
/// poll, probe, demo and device switch. Shows everything through the view.
class PanelSession : private PanelLinkListener {
 public:
    PanelSession(const Services& services, PanelView& view);

    /// Opens the port, identifies the controller and reads once what does not change. False
    /// when that fails, which the operator has been told then: the poll must stay off.
    bool load(const Connection& connection);

    /// One tick of the poll: reads the axis, or probes for a silent controller.
    void pollTick();

    /// The operator chose another device on the bus. Ends the demo.
    void switchDevice(const std::string& deviceId);

    /// Starts or ends the demo moves to 8000 and 0.
    void toggleDemo() { setDemo(!m_state.demo); }
    void endDemo() { setDemo(false); }

    /// A box or another screen keeps the poll off: what stands there is no live value until the
    /// next whole pass.
    void holdOff() { setLive(false); }

    /// What the axis does, by the last status that was read.
    [[nodiscard]] MotionState motion() const { return m_motion; }

    /// Closes the port, when it is still this panel's.
    void unload();

    PanelLink link;

 private:
    void commChanged(bool connected) override;
    void exchangeTimedOut() override;
    void portLost() override;
    void pollHeldOff() override { holdOff(); }
    void portNotTakenBack() override { failLoad(); }

    bool identify();
    void readOnce();
    void failLoad();
    void passOverAxis();
    void stepDemo();
    void probe();
    void failSwitch();
    void setDemo(bool on);
    void setLive(bool live);

    std::string ask(std::string_view command) { return link.SendReceive(command); }
    void noteFirmware();

    void show() { m_view.showState(m_state); }
    void showLink(LinkState state);
    void showIdentity(std::string id);
    void showVersion(std::string version);
    void showInvalidPort();
    void showDeviceLost();
    void showUnknownDevice();

    const Services& m_services;
    PanelView& m_view;
    PanelState m_state;
    MotionState m_motion = MotionState::idle;
    int m_demoStep = 0;  ///< 0 to 2
};

}  // namespace zlt
