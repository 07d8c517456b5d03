#include "panel/PanelSession.h"

#include "link/Framing.h"
#include "panel/StatusWord.h"
#include "platform/Latin1.h"
#include "platform/NumberConversion.h"
#include "programs/ProgramState.h"

namespace zlt {
namespace {

constexpr Rgb red{255, 0, 0};
constexpr Rgb green{0, 255, 0};
constexpr Rgb grey{128, 128, 128};

constexpr std::string_view noCommunication = "No Communication";
constexpr std::string_view communicationOk = "Communication OK";
constexpr std::string_view unknown = "???";

}  // namespace

PanelSession::PanelSession(const Services& services, PanelView& view, QObject* owner)
    : link(services, this, owner, [this] { failLoad(); }), m_services(services), m_view(view) {}

// Load

bool PanelSession::load(const Connection& connection) {
    link.connection = connection;
    link.PortReady = false;
    link.firmware = {};
    setDemo(false);
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
    readVersion();
    m_view.showIdentity(ask("ID"));
    const std::string name = ask("DN");
    m_view.showSelectedDevice(behindDeviceNamePrefix(name, 5));
    m_view.showSpeed(ask("HSPD"));
    m_view.showAcceleration(ask("ACC"));
}

void PanelSession::failLoad() {
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
        if (link.CommOK())
            readAxis();
        else
            probe();
    } catch (const ConversionError& error) {
        // Beside a machine a wrong read-out is worse than none.
        m_services.gate.message(error.what());
        link.endProgram(1);
    }
}

std::int32_t PanelSession::askNumber(std::string_view command) {
    return replyToInteger(command, ask(command));
}

void PanelSession::readAxis() {
    m_view.showValue(Value::current, ask("CUR"));
    m_view.showValue(Value::position, ask("PX"));
    m_view.showValue(Value::encoder, ask("EX"));

    const StatusWord status(askNumber("MST"));
    m_view.showValue(Value::motion, status.motionText());
    m_view.showIndicator(Indicator::negativeLimit, status.negativeLimit());
    m_view.showIndicator(Indicator::positiveLimit, status.positiveLimit());
    m_view.showIndicator(Indicator::home, status.home());

    m_view.showDriverEnabled(askNumber("EO") == 1);
    if (link.firmware >= firmwareWithProgramState)
        readProgramState();
    if (DemoMode)
        stepDemo();
}

void PanelSession::readProgramState() {
    m_view.showValue(Value::moveMode, askNumber("MM") != 0 ? "INC" : "ABS");
    m_view.showIndicator(Indicator::output, askNumber("DO") == 1);
    m_view.showValue(Value::programLine, std::to_string(askNumber("SPC")));
    if (const auto text = programStateText(askNumber("SASTAT")))
        m_view.showValue(Value::programState, *text);
}

/// Old firmware is never asked for these, and a state without words leaves the text standing:
/// it would be another device's.
void PanelSession::forgetProgramState() {
    for (const Value value : {Value::moveMode, Value::programLine, Value::programState})
        m_view.showValue(value, "");
    m_view.showIndicator(Indicator::output, false);
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
    readVersion();
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
    setDemo(false);  // the other axis has only been selected, not told to move
    forgetProgramState();
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
    readVersion();
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

void PanelSession::readVersion() {
    m_version = ask("VER");
    m_view.showVersion(m_version);
}

void PanelSession::noteFirmware() {
    const bool wasRead = link.firmware >= firmwareWithProgramState;
    link.firmware = firmwareVersion("VER", m_version);
    if (wasRead && link.firmware < firmwareWithProgramState)
        forgetProgramState();
}

void PanelSession::commChanged(bool connected) {
    m_view.showLive(connected);
}

void PanelSession::exchangeTimedOut() {
    m_view.showLinkState(noCommunication, red);
    showUnknownDevice();
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
