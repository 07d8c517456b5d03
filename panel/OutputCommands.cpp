#include "panel/OutputCommands.h"

#include "platform/NumberConversion.h"

namespace zlt {

bool OutputCommands::toggle(std::string_view query, std::string_view setting) {
    const bool off = parseInteger(m_link.SendReceive(query)) == 0;
    m_link.SendReceive(std::string(setting) + (off ? "=1" : "=0"));
    return off;
}

void OutputCommands::DOSet_Click(int output) {
    const std::string name = "DO" + std::to_string(output);
    toggle(name, name);
}

void OutputCommands::d1_Click() {
    m_link.SendReceive(m_view.outputShown() ? "DO=0" : "DO=1");
}

void OutputCommands::EnableStat_Click(bool checked) {
    if (!checked)
        m_endDemo();
    const auto enabled = parseInteger(m_link.SendReceive("EO"));
    if (checked && enabled == 0)
        m_link.SendReceive("EO=1");
    else if (!checked && enabled == 1)
        m_link.SendReceive("EO=0");
}

void OutputCommands::EnableLatch_Click() {
    m_view.markLatch(toggle("LTS", "LT"));
}

void OutputCommands::SyncEnable_Click(bool checked) {
    const auto condition = m_view.syncCondition();
    const auto [position, fault] = parseTyped("Sync Output, Position", m_view.syncPosition());
    if (!position && checked)
        m_view.markSyncEnabled(false);
    else {
        if (condition)
            m_link.SendReceive("SYNC=" + std::to_string(static_cast<int>(*condition)));
        if (position)
            m_link.SendReceive("SYNP=" + std::to_string(*position));
        m_link.SendReceive(checked ? "SYNO" : "SYNF");
    }
    if (!position) {
        m_view.pointToSyncPosition();
        throw ConversionError(fault);
    }
}

void OutputCommands::Scurve_Click(bool checked) {
    m_link.SendReceive(checked ? "SCV=1" : "SCV=0");
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
