#include "panel/PanelSession.h"

#include <utility>

#include "link/Exchange.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {

PanelSession::PanelSession(const Services& services, PanelView& view)
    : link(services, *this), m_services(services), m_view(view) {}

// Load

bool PanelSession::load(const Connection& connection) {
    link.connection = connection;
    link.setPortReady(false);
    link.firmware = {};
    setDemo(false);
    setLive(false);
    m_state.device = connection.deviceId;
    m_state.deviceShown = connection.deviceId;
    m_state.baudRate = connection.baudRate;
    show();
    try {
        if (!link.openPort()) {
            failLoad();
            return false;
        }
        link.setPortReady(true);
        m_state.portRemark = link.portRemark();
        link.setCommOK(true);
        if (identify())
            readOnce();
        // After a failed identification or any time-out the version reads "???", which is no
        // number: the load ends below, and a controller that did not answer is never polled.
        link.firmware = firmwareVersion("VER", m_state.version);
    } catch (const std::exception&) {
        failLoad();
        return false;
    }
    m_state.loadedFirmware = link.firmware;
    show();
    return true;
}

bool PanelSession::identify() {
    if (isDeviceName(ask("DN"))) {
        link.setCommOK(true);
        showLink(LinkState::answering);
        return true;
    }
    link.setCommOK(false);
    showLink(LinkState::silent);
    m_services.gate.message("No Communication with device!");
    showDeviceLost();
    return false;
}

void PanelSession::readOnce() {
    showVersion(ask("VER"));
    showIdentity(ask("ID"));
    const std::string name = ask("DN");
    m_state.deviceShown = afterDeviceNamePrefix(name, 5);
    const std::string speed = ask("HSPD");
    m_view.fillSettings(speed, ask("ACC"));
}

void PanelSession::failLoad() {
    endDemo();
    link.setPortReady(false);
    link.setCommOK(false);
    showInvalidPort();
    m_services.gate.message(portNotAvailable);
}

void PanelSession::unload() {
    if (link.PortReady())
        link.closePort();
}

// Poll

void PanelSession::pollTick() {
    if (link.PollPaused() || !link.PortReady())
        return;
    try {
        const AskedBy poll(link.busLog(), link.CommOK() ? Asker::poll : Asker::probe);
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
    if (m_state.demo)
        stepDemo();
    if (reading.status)
        m_motion = reading.status->motion();
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
        showLink(LinkState::silent);
        showIdentity(std::string(unknownText));
        return;
    }
    link.setCommOK(true);
    showLink(LinkState::answering);
    // A device name is what an earlier "DN" is answered with, late: every reply has been
    // one late since then.
    std::string version = ask("VER");
    while (isDeviceName(version))
        version = link.receive("VER");
    showVersion(std::move(version));
    showIdentity(ask("ID"));
    // Silent again in the middle of it: the number known so far stays, the probe goes on.
    if (link.CommOK())
        noteFirmware();
}

void PanelSession::setDemo(bool on) {
    m_state.demo = on;
    m_demoStep = on ? 1 : 0;
    show();
}

// Device switch

void PanelSession::switchDevice(const std::string& deviceId) {
    m_state.deviceShown = deviceId;
    if (!link.PortReady() || deviceId == link.connection.deviceId)
        return;
    holdOff();       // the values of the one before
    setDemo(false);  // the other axis has only been selected, not told to move
    m_view.forgetProgram();
    m_view.deviceSwitched(link.connection.deviceId, deviceId);
    link.connection.deviceId = deviceId;
    m_state.device = deviceId;
    show();
    link.setCommOK(true);
    // A device name is what "DN" answers; as the product's identity it is a wrong answer.
    // Everything else passes here, silence included, which then fails on the version.
    if (isDeviceName(ask("ID"))) {
        failSwitch();
        return;
    }
    link.setCommOK(true);
    showLink(LinkState::answering);
    showVersion(ask("VER"));
    try {
        if (m_state.version != unknownText)
            noteFirmware();
    } catch (const ConversionError& error) {
        m_services.gate.message(error.what());
        link.endProgram(1);
    }
    showIdentity(ask("ID"));
}

void PanelSession::failSwitch() {
    link.setCommOK(false);
    showLink(LinkState::silent);
    m_services.gate.message("No Communication with the device at address " +
                            utf8FromLatin1(link.connection.deviceId));
    showDeviceLost();
}

// What the screen shows of the link

void PanelSession::showLink(LinkState state) {
    m_state.link = state;
    show();
}

void PanelSession::showIdentity(std::string id) {
    m_state.id = std::move(id);
    show();
}

void PanelSession::showVersion(std::string version) {
    m_state.version = std::move(version);
    show();
}

void PanelSession::noteFirmware() {
    const bool wasRead = link.firmware >= firmwareWithProgramState;
    link.firmware = firmwareVersion("VER", m_state.version);
    if (wasRead && link.firmware < firmwareWithProgramState)
        m_view.forgetProgram();
}

void PanelSession::setLive(bool live) {
    m_state.live = live;
    show();
}

/// Live again is only what a whole pass has read.
void PanelSession::commChanged(bool connected) {
    if (!connected)
        setLive(false);
}

void PanelSession::exchangeTimedOut() {
    showUnknownDevice();
    showLink(LinkState::silent);
}

void PanelSession::portLost() {
    showInvalidPort();
}

void PanelSession::showInvalidPort() {
    showLink(LinkState::noPort);
    showDeviceLost();
}

void PanelSession::showDeviceLost() {
    m_state.deviceShown = link.connection.deviceId;
    showUnknownDevice();
}

void PanelSession::showUnknownDevice() {
    m_state.id = unknownText;
    m_state.version = unknownText;
    show();
    m_view.resetSync();
}

}  // namespace zlt
