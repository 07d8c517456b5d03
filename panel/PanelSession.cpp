#include "panel/PanelSession.h"

#include <utility>

#include "link/Exchange.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

constexpr Rgb red{255, 0, 0};
constexpr Rgb green{0, 255, 0};
constexpr Rgb grey{128, 128, 128};

constexpr std::string_view noCommunication = "No Communication";
constexpr std::string_view communicationOk = "Communication OK";
constexpr std::string_view unknown = "???";

}  // namespace

PanelSession::PanelSession(const Services& services, PanelView& view)
    : link(services, *this), m_services(services), m_view(view) {}

// Load

bool PanelSession::load(const Connection& connection) {
    link.connection = connection;
    link.PortReady = false;
    link.firmware = {};
    setDemo(false);
    setLive(false);
    m_view.showBaudRate(connection.baudRate);
    try {
        if (!link.openPort()) {
            failLoad();
            return false;
        }
        link.PortReady = true;
        m_view.showPortRemark(link.portRemark());
        link.setCommOK(true);
        if (identify())
            readOnce();
        // After a failed identification or any time-out the version reads "???", which is no
        // number: the load ends below, and a controller that did not answer is never polled.
        link.firmware = firmwareVersion("VER", m_version);
    } catch (const std::exception&) {
        failLoad();
        return false;
    }
    m_view.gateFeatures(link.firmware);
    return true;
}

bool PanelSession::identify() {
    if (isDeviceName(ask("DN"))) {
        link.setCommOK(true);
        m_view.showLinkState(communicationOk, green);
        return true;
    }
    link.setCommOK(false);
    m_view.showLinkState(noCommunication, red);
    m_services.gate.message("No Communication with device!");
    showDeviceLost();
    return false;
}

void PanelSession::readOnce() {
    showVersion(ask("VER"));
    m_view.showIdentity(ask("ID"));
    const std::string name = ask("DN");
    m_view.showSelectedDevice(behindDeviceNamePrefix(name, 5));
    m_view.showSpeed(ask("HSPD"));
    m_view.showAcceleration(ask("ACC"));
}

void PanelSession::failLoad() {
    endDemo();
    link.PortReady = false;
    link.setCommOK(false);
    showInvalidPort();
    m_services.gate.message(portNotAvailable);
}

void PanelSession::unload() {
    if (link.PortReady)
        link.closePort();
}

// Poll

void PanelSession::pollTick() {
    if (link.PollPaused || !link.PortReady)
        return;
    try {
        if (link.CommOK()) {
            passOverAxis();
        } else {
            endDemo();  // a click has met the silence
            probe();
        }
    } catch (const ConversionError& error) {
        // Beside a machine a wrong read-out is worse than none.
        m_services.gate.message(error.what());
        link.endProgram(1);
    }
}

void PanelSession::passOverAxis() {
    const AxisReading reading = readAxis(link);
    if (DemoMode)
        stepDemo();
    m_view.showReading(reading);
    // After a time-out the zeros are no values, and what came later may be another command's.
    setLive(link.CommOK());
    if (!link.CommOK())
        endDemo();  // the axis must not move by itself once the controller is back
}

void PanelSession::stepDemo() {
    if (m_demoStep == 1)
        ask("X8000");
    else if (m_demoStep == 2)
        ask("X0");
    if (++m_demoStep > 2)
        m_demoStep = 1;
}

void PanelSession::probe() {
    if (!isDeviceName(ask("DN"))) {
        m_view.showLinkText(noCommunication);
        m_view.showIdentity(unknown);
        return;
    }
    link.setCommOK(true);
    m_view.showLinkState(communicationOk, green);
    // A device name is what an earlier "DN" is answered with, late: every reply has been one
    // behind since then.
    std::string version = ask("VER");
    while (isDeviceName(version))
        version = link.receive("VER");
    showVersion(std::move(version));
    m_view.showIdentity(ask("ID"));
    // Silent again in the middle of it: the number known so far stays, the probe goes on.
    if (link.CommOK())
        noteFirmware();
}

void PanelSession::setDemo(bool on) {
    DemoMode = on;
    m_demoStep = on ? 1 : 0;
    m_view.showDemo(on);
}

// Device switch

void PanelSession::switchDevice(const std::string& deviceId) {
    if (!link.PortReady || deviceId == link.connection.deviceId)
        return;
    holdOff();       // the values of the one before
    setDemo(false);  // the other axis has only been selected, not told to move
    m_view.forgetProgram();
    m_view.showDeviceSwitch(link.connection.deviceId, deviceId);
    link.connection.deviceId = deviceId;
    link.setCommOK(true);
    // A device name is what "DN" answers; as the product's identity it is a wrong answer.
    // Everything else passes here, silence included, which then fails on the version.
    if (isDeviceName(ask("ID"))) {
        failSwitch();
        return;
    }
    link.setCommOK(true);
    m_view.showLinkState(communicationOk, green);
    showVersion(ask("VER"));
    try {
        if (m_version != unknown)
            noteFirmware();
    } catch (const ConversionError& error) {
        m_services.gate.message(error.what());
        link.endProgram(1);
    }
    m_view.showIdentity(ask("ID"));
}

void PanelSession::failSwitch() {
    link.setCommOK(false);
    m_view.showLinkState(noCommunication, red);
    m_services.gate.message("No Communication with the device at address " +
                            utf8FromLatin1(link.connection.deviceId));
    showDeviceLost();
}

// What the screen shows of the link

void PanelSession::showVersion(std::string version) {
    m_version = std::move(version);
    m_view.showVersion(m_version);
}

void PanelSession::noteFirmware() {
    const bool wasRead = link.firmware >= firmwareWithProgramState;
    link.firmware = firmwareVersion("VER", m_version);
    if (wasRead && link.firmware < firmwareWithProgramState)
        m_view.forgetProgram();
}

void PanelSession::setLive(bool live) {
    if (m_live == live)
        return;
    m_live = live;
    m_view.showLive(live);
}

/// Live again is only what a whole pass has read.
void PanelSession::commChanged(bool connected) {
    if (!connected)
        setLive(false);
}

void PanelSession::exchangeTimedOut() {
    showUnknownDevice();
    m_view.showLinkState(noCommunication, red);
}

void PanelSession::portLost() {
    showInvalidPort();
}

void PanelSession::showInvalidPort() {
    m_view.showLinkState("Invalid Port", grey);
    showDeviceLost();
}

void PanelSession::showDeviceLost() {
    m_view.showSelectedDevice(link.connection.deviceId);
    showUnknownDevice();
}

void PanelSession::showUnknownDevice() {
    m_version = unknown;
    m_view.showIdentity(unknown);
    m_view.showVersion(unknown);
    m_view.resetSync();
}

}  // namespace zlt
