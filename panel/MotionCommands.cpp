#include "panel/MotionCommands.h"

#include <stdexcept>
#include <utility>

#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

constexpr std::string_view speedLabel = "High Speed";
constexpr std::string_view positionLabel = "Position";

bool isStop(std::string_view command) {
    return command == "STOP" || command == "ABORT";
}

void fillEmpty(std::string& text, std::string_view whenEmpty) {
    if (text.empty())
        text = whenEmpty;
}

/// Reads one setting into `number`, unless it is to be left out. `bad` keeps the first fault.
void readSetting(const std::string& text, std::string_view label, PanelField field,
                 std::optional<std::int32_t>& number, std::optional<BadField>& bad) {
    if (text.empty())
        return;
    const auto [typed, fault] = parseTyped(label, text);
    number = typed;
    if (!typed && !bad)
        bad.emplace(field, fault);
}

/// A box's text as it stands, blanks and all.
std::string verbatim(PanelField field, std::string_view label, std::string_view typed) {
    try {
        return commandText(typed);
    } catch (const std::runtime_error& error) {
        throw BadField(field, "In the field " + inQuotes(label) + ": " + error.what());
    }
}

}  // namespace

MotionCommands::MotionCommands(PanelLink& link, std::function<void()> endDemo)
    : m_link(link), m_endDemo(std::move(endDemo)) {}

MotionCommands::Settings MotionCommands::read(MotionFields& fields) {
    if (fields.fillsEmpty) {
        fillEmpty(fields.speed, "0");
        fillEmpty(fields.acceleration, "100");
    }
    Settings settings;
    readSetting(fields.speed, speedLabel, PanelField::speed, settings.speed, settings.bad);
    readSetting(fields.acceleration, "Accel", PanelField::acceleration, settings.acceleration,
                settings.bad);
    return settings;
}

MotionCommands::Settings MotionCommands::readGood(MotionFields& fields) {
    Settings settings = read(fields);
    if (settings.bad)
        throw BadField(*settings.bad);
    return settings;
}

void MotionCommands::sendSettings(const Settings& settings) {
    if (settings.speed)
        m_link.SendReceive("HSPD=" + std::to_string(*settings.speed));
    if (settings.acceleration)
        m_link.SendReceive("ACC=" + std::to_string(*settings.acceleration));
}

void MotionCommands::SendMotionCommand(MotionFields& fields, std::string_view command) {
    const bool stops = isStop(command);
    if (stops)
        m_endDemo();
    const Settings settings = stops ? read(fields) : readGood(fields);
    sendSettings(settings);
    m_link.SendReceive(command);
    if (settings.bad)
        throw BadField(*settings.bad);
}

void MotionCommands::sendHLHoming(MotionFields& fields, std::string_view command) {
    // The button's look is as loaded; the controller may be another one by now.
    if (m_link.firmware >= firmwareWithHLHoming)
        SendMotionCommand(fields, command);
}

void MotionCommands::move(MotionFields& fields) {
    const std::string position = verbatim(PanelField::position, positionLabel, fields.position);
    SendMotionCommand(fields, "X" + position);
}

void MotionCommands::moveToZero(MotionFields& fields) {
    // A typing error must not come between "ABS" and "INC".
    readGood(fields);
    const bool incremental = m_link.SendReceive("MM") == "1";
    if (incremental)
        m_link.SendReceive("ABS");
    SendMotionCommand(fields, "X0");
    if (incremental)
        m_link.SendReceive("INC");
}

void MotionCommands::changeSpeed(const MotionFields& fields) {
    m_link.SendReceive("SSPD" + verbatim(PanelField::speed, speedLabel, fields.speed));
}

void MotionCommands::setCounter(MotionFields& fields, std::string_view command) {
    fillEmpty(fields.position, "0");
    m_link.SendReceive(std::string(command) +
                       verbatim(PanelField::position, positionLabel, fields.position));
}

}  // namespace zlt
