#include "panel/MotionCommands.h"

#include <array>
#include <stdexcept>
#include <utility>

#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

using Box = MotionView::Box;

constexpr std::array motionTable{
    CommandButton{"JOGP", "J+"},
    CommandButton{"JOGN", "J-"},
    CommandButton{"HOMEP", "H+"},
    CommandButton{"HOMEN", "H-"},
    CommandButton{"HLHOMEPLUS", "HL+", true},
    CommandButton{"HLHOMEMINUS", "HL-", true},
    CommandButton{"LHOMEPLUS", "L+", true},
    CommandButton{"LHOMEMINUS", "L-", true},
    CommandButton{"ZHOMEPLUS", "ZH+"},
    CommandButton{"ZHOMEMINUS", "ZH-"},
    CommandButton{"Command4", "Z+"},
    CommandButton{"Command3", "Z-"},
    CommandButton{"ResetPos", "PX=0"},
    CommandButton{"ResetEnc", "EX=0"},
    CommandButton{"ResetEncoder", "EX=0"},
};

constexpr std::array plainTable{
    CommandButton{"ABSMode", "ABS"},
    CommandButton{"INCMode", "INC"},
    CommandButton{"EnableOn", "EO=1"},
    CommandButton{.control = "EnableOff", .command = "EO=0", .endsDemo = true},
    CommandButton{"clear", "CLR"},
};

std::string_view labelOf(Box box) {
    switch (box) {
        case Box::speed:
            return "High Speed";
        case Box::acceleration:
            return "Accel";
        case Box::position:
            break;
    }
    return "Position";
}

bool isStop(std::string_view command) {
    return command == "STOP" || command == "ABORT";
}

}  // namespace

std::span<const CommandButton> MotionCommands::motionButtons() {
    return motionTable;
}
std::span<const CommandButton> MotionCommands::plainButtons() {
    return plainTable;
}

MotionCommands::MotionCommands(PanelLink& link, MotionView& view, std::function<void()> endDemo)
    : m_link(link), m_view(view), m_endDemo(std::move(endDemo)) {}

void MotionCommands::pressMotion(const CommandButton& button) {
    // The button's look is as loaded; the controller may be another one by now.
    if (button.needsHomingFirmware && m_link.firmware < firmwareWithHLHoming)
        return;
    SendMotionCommand(button.command);
}

void MotionCommands::pressPlain(const CommandButton& button) {
    if (button.endsDemo)
        m_endDemo();
    m_link.SendReceive(button.command);
}

MotionCommands::Settings MotionCommands::readSettings() {
    Settings settings;
    const auto read = [&](Box box, std::string_view whenEmpty) {
        if (m_view.typed(box).empty())
            m_view.fill(box, whenEmpty);
        const std::string text = m_view.typed(box);
        TypedNumber typed = parseTyped(labelOf(box), text);
        if (!typed.number && !settings.faulty) {
            settings.faulty = box;
            settings.fault = std::move(typed.fault);
        }
        return typed.number;
    };
    settings.speed = read(Box::speed, "0");
    settings.acceleration = read(Box::acceleration, "100");
    return settings;
}

void MotionCommands::refuse(const Settings& settings) {
    m_view.pointTo(*settings.faulty);
    throw ConversionError(settings.fault);
}

void MotionCommands::send(const Settings& settings) {
    if (settings.speed)
        m_link.SendReceive("HSPD=" + std::to_string(*settings.speed));
    if (settings.acceleration)
        m_link.SendReceive("ACC=" + std::to_string(*settings.acceleration));
}

void MotionCommands::SendSpeedAndAccel() {
    const Settings settings = readSettings();
    if (settings.faulty)
        refuse(settings);
    send(settings);
}

void MotionCommands::SendMotionCommand(std::string_view command) {
    if (!isStop(command)) {
        SendSpeedAndAccel();
        m_link.SendReceive(command);
        return;
    }
    m_endDemo();
    const Settings settings = readSettings();
    send(settings);
    m_link.SendReceive(command);
    if (settings.faulty)
        refuse(settings);
}

std::string MotionCommands::verbatim(Box box) {
    try {
        return m_view.typedForWire(box);
    } catch (const std::runtime_error& error) {
        m_view.pointTo(box);
        throw std::runtime_error("In the field " + inQuotes(labelOf(box)) + ": " + error.what());
    }
}

void MotionCommands::ABS_Click() {
    SendMotionCommand("X" + verbatim(Box::position));
}

void MotionCommands::Datum_Click() {
    // A typing error must not come between "ABS" and "INC".
    if (const Settings settings = readSettings(); settings.faulty)
        refuse(settings);
    const bool incremental = m_link.SendReceive("MM") == "1";
    if (incremental)
        m_link.SendReceive("ABS");
    SendMotionCommand("X0");
    if (incremental)
        m_link.SendReceive("INC");
}

void MotionCommands::SSPD_Click() {
    m_link.SendReceive("SSPD" + verbatim(Box::speed));
}

void MotionCommands::setCounter(std::string_view command) {
    if (m_view.typed(Box::position).empty())
        m_view.fill(Box::position, "0");
    m_link.SendReceive(std::string(command) + verbatim(Box::position));
}

}  // namespace zlt
