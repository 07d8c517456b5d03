#include "panel/StateReport.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "link/BusText.h"
#include "platform/Product.h"
#include "platform/Text.h"

namespace zlt {
namespace {

constexpr std::string_view onOrOff(bool on) {
    return on ? "on" : "off";
}

std::string line(std::string_view name, std::string_view text) {
    constexpr std::size_t width = 16;
    std::string whole(name);
    whole.resize(std::max(width, name.size() + 2), ' ');
    whole += text;
    return whole.erase(whole.find_last_not_of(' ') + 1) + '\n';
}

std::string ageText(std::chrono::steady_clock::duration age) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%.3f s ago",
                  std::chrono::duration<double>(age).count());
    return text.data();
}

std::string versionText() {
    return ZLT_VERSION + (", " + std::string(aboutText.substr(0, aboutText.find('\r'))));
}

std::string_view linkText(LinkState link) {
    switch (link) {
        case LinkState::opening:
            break;
        case LinkState::answering:
            return "Communication OK";
        case LinkState::silent:
            return "No Communication";
        case LinkState::noPort:
            return "Invalid Port";
    }
    return "connecting";
}

std::string connectionText(const StateReport& report) {
    const Connection& connection = report.connection;
    const std::string device = report.portDevice.empty() ? "not known" : report.portDevice;
    std::string text = line("Port", portText(connection.port)) + line("Behind it", device) +
                       line("Baud rate", shownBytes(connection.baudRate)) +
                       line("Device", shownBytes(connection.deviceId)) +
                       line("Link", linkText(report.panel.link));
    if (!report.panel.portRemark.empty())
        text += line("Remark", report.panel.portRemark);
    if (report.panel.demo)
        text += line("Demo", "on");
    return text;
}

std::string readOutsText(const StateReport& report) {
    std::string text =
        std::string("\nRead-outs, as last read") + (report.panel.live ? "\n" : "; not live now\n");
    if (report.readOuts.values().empty())
        text += "none\n";
    for (const ReadOuts::Value& value : report.readOuts.values()) {
        constexpr std::size_t width = 14;
        std::string shown = shownBytes(value.text);
        shown.resize(std::max(width, shown.size() + 2), ' ');
        text += line(value.name, shown + ageText(report.now.steady - value.read));
    }
    return text;
}

std::string notesText(const DeviceNote& note) {
    std::string text = "\nWritten and not stored to flash\n";
    if (note.unstored.empty())
        text += "nothing that the panel knows of\n";
    for (const auto& [name, before] : note.unstored)
        text += line(name, before ? "the next power-up brings back " + shownBytes(*before)
                                  : "the stored value is not known");
    if (const std::string pending = pendingText(note); !pending.empty())
        text += line("Next power-up", shownBytes(pending));
    return text;
}

std::string exchangesText(std::string_view what, const std::vector<BusRecord>& records) {
    return "\nThe last " + std::to_string(records.size()) + " exchanges" + std::string(what) +
           "\n" + busTable(records, "\n");
}

}  // namespace

void ReadOuts::note(const AxisReading& reading, std::chrono::steady_clock::time_point now) {
    note("Current", reading.current, now);
    note("Position", reading.position, now);
    note("Encoder", reading.encoder, now);
    if (reading.status) {
        note("Status", shownState(reading.status->motion()).words, now);
        note("-Lim", onOrOff(reading.status->negativeLimit()), now);
        note("Home", onOrOff(reading.status->home()), now);
        note("+Lim", onOrOff(reading.status->positiveLimit()), now);
    }
    if (reading.driverEnabled)
        note("Driver", onOrOff(*reading.driverEnabled), now);
    if (!reading.program)
        return;
    if (reading.program->incremental)
        note("Move mode", *reading.program->incremental ? "INC" : "ABS", now);
    if (reading.program->output)
        note("Output", onOrOff(*reading.program->output), now);
    if (reading.program->line)
        note("Program line", std::to_string(*reading.program->line), now);
    if (reading.program->state)
        note("Program", shownState(*reading.program->state).words, now);
}

void ReadOuts::note(std::string_view name, std::string_view text,
                    std::chrono::steady_clock::time_point now) {
    const auto value = std::find_if(m_values.begin(), m_values.end(),
                                    [&](const Value& known) { return known.name == name; });
    if (value == m_values.end())
        m_values.push_back({std::string(name), std::string(text), now});
    else
        *value = {value->name, std::string(text), now};
}

std::string stateText(const StateReport& report) {
    return "State of the " + std::string(controllerModel) + " panel, " +
           dateAndTime(report.now.wall) + "\n\n" + line("Version", versionText()) +
           connectionText(report) + readOutsText(report) + notesText(report.note) +
           exchangesText(", the poll's among them", report.exchanges) +
           exchangesText(" without the poll's that were answered", report.exchangesButPoll);
}

}  // namespace zlt
