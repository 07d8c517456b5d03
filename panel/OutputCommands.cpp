#include "panel/OutputCommands.h"

#include <string>

#include "platform/NumberConversion.h"

namespace zlt {

bool OutputCommands::toggle(std::string_view query, std::string_view setting) {
    const bool off = parseInteger(m_link.SendReceive(query)) == 0;
    m_link.SendReceive(std::string(setting) + (off ? "=1" : "=0"));
    return off;
}

void OutputCommands::toggleDigitalOutput(int output) {
    const std::string name = "DO" + std::to_string(output);
    toggle(name, name);
}

void OutputCommands::toggleOutput(bool shownOn) {
    m_link.SendReceive(shownOn ? "DO=0" : "DO=1");
}

void OutputCommands::switchDriver(bool on) {
    if (!on)
        m_endDemo();
    m_link.SendReceive(on ? "EO=1" : "EO=0");
}

void OutputCommands::askAndSwitchDriver(bool on) {
    if (!on)
        m_endDemo();
    const auto enabled = parseInteger(m_link.SendReceive("EO"));
    if (enabled == (on ? 0 : 1))
        switchDriver(on);
}

bool OutputCommands::toggleLatch() {
    return toggle("LTS", "LT");
}

void OutputCommands::switchSync(bool on, const SyncFields& fields) {
    const auto [position, fault] = parseTyped("Sync Output, Position", fields.position);
    if (position || !on) {
        if (fields.condition)
            m_link.SendReceive("SYNC=" + std::to_string(static_cast<int>(*fields.condition)));
        if (position)
            m_link.SendReceive("SYNP=" + std::to_string(*position));
        m_link.SendReceive(on ? "SYNO" : "SYNF");
    }
    if (!position)
        throw BadField(PanelField::syncPosition, fault);
}

void OutputCommands::sendScurve(bool on) {
    m_link.SendReceive(on ? "SCV=1" : "SCV=0");
}

bool OutputCommands::setScurve(bool on, MotionState motionShown) {
    if (motionShown != MotionState::idle) {
        m_services.gate.message("Cannot set while running!");
        return false;
    }
    if (m_link.SendReceive(on ? "SCV=1" : "SCV=0") != "OK") {
        m_services.gate.message("Error Setting Scurve!");
        return false;
    }
    return true;
}

}  // namespace zlt
