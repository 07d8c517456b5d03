#include "panel/AxisReading.h"

#include <array>
#include <utility>

#include "platform/NumberConversion.h"

namespace zlt {
namespace {

/// Nothing for a reply of another command, come late, that is no number.
std::optional<std::int32_t> askNumber(PanelLink& link, std::string_view command) {
    const std::string reply = link.SendReceive(command);
    return link.CommOK() ? replyToInteger(command, reply) : parseInteger(reply);
}

template <class Test>
std::optional<bool> ask(PanelLink& link, std::string_view command, Test test) {
    const auto number = askNumber(link, command);
    return number ? std::optional(test(*number)) : std::nullopt;
}

bool isOne(std::int32_t number) {
    return number == 1;
}

AxisReading::Program readProgram(PanelLink& link) {
    AxisReading::Program program;
    program.incremental = ask(link, "MM", [](std::int32_t number) { return number != 0; });
    program.output = ask(link, "DO", isOne);
    program.line = askNumber(link, "SPC");
    if (const auto code = askNumber(link, "SASTAT"))
        program.state = programStateOfCode(*code);
    return program;
}

}  // namespace

ShownState shownState(MotionState motion) {
    switch (motion) {
        case MotionState::moving:
            return {"MOVING", Meaning::underWay};
        case MotionState::accelerating:
            return {"ACCEL", Meaning::underWay};
        case MotionState::decelerating:
            return {"DECEL", Meaning::underWay};
        case MotionState::negativeLimitError:
            return {"-LIM ERR", Meaning::atFault};
        case MotionState::positiveLimitError:
            return {"+LIM ERR", Meaning::atFault};
        case MotionState::idle:
            break;
    }
    return {"IDLE", Meaning::atRest};
}

MotionState StatusWord::motion() const {
    // In bit order; each one that is set replaces the state before it.
    constexpr std::array<std::pair<unsigned, MotionState>, 5> states{
        {{0, MotionState::moving},
         {1, MotionState::accelerating},
         {2, MotionState::decelerating},
         {6, MotionState::negativeLimitError},
         {7, MotionState::positiveLimitError}}};
    MotionState motion = MotionState::idle;
    for (const auto& [number, state] : states)
        if (bit(number))
            motion = state;
    return motion;
}

std::optional<std::int64_t> followingError(const AxisReading& reading) {
    const auto position = parseInteger(reading.position);
    const auto encoder = parseInteger(reading.encoder);
    if (!position || !encoder)
        return std::nullopt;
    return std::int64_t{*position} - *encoder;
}

AxisReading readAxis(PanelLink& link) {
    AxisReading reading;
    reading.current = link.SendReceive("CUR");
    reading.position = link.SendReceive("PX");
    reading.time = std::chrono::steady_clock::now();
    reading.encoder = link.SendReceive("EX");
    if (const auto status = askNumber(link, "MST"))
        reading.status = StatusWord(*status);
    reading.driverEnabled = ask(link, "EO", isOne);
    if (link.firmware >= firmwareWithProgramState)
        reading.program = readProgram(link);
    return reading;
}

}  // namespace zlt
