#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace zlt::sim {

/// What the controller keeps in flash. The working copy takes effect as it is written; the flash
/// copy is what a power cycle brings back.
struct Parameters {
    std::int64_t speed = 1000;        ///< pulses per second
    std::int64_t acceleration = 300;  ///< milliseconds from standstill to that speed
    std::int64_t runCurrent = 1000;   ///< milliamperes
    std::int64_t idleCurrent = 500;   ///< milliamperes
    std::int64_t microstep = 16;
    std::int64_t polarity = 0;
    std::int64_t limitsDisabled = 0;
    std::int64_t bootFlags = 0;         ///< bit 0 and 1: run program thread 0 and 1 at power-up
    std::int64_t limitCorrection = 0;   ///< pulses
    std::int64_t homeCorrection = 500;  ///< pulses
    std::int64_t outputsAtBoot = 0;     ///< bit n: output n + 1
    std::int64_t nameInReplies = 0;
    std::int64_t sCurve = 0;
    std::int64_t id = 1;        ///< in use after the next power cycle
    std::int64_t baudCode = 1;  ///< in use after the next power cycle
};

/// A parameter that is read with its name and written with its name, "=" and a whole number.
struct ParameterRow {
    std::string_view name;
    std::int64_t Parameters::*field;
    std::int64_t lowest;
    std::int64_t highest;
    int firmware;         ///< the oldest that knows it
    bool onlyWhileStill;  ///< refused while the axis moves
};

/// All of them but those that need more than a number put into a field.
std::span<const ParameterRow> parameterRows();

/// Codes 1 to 5 stand for 9600 to 115200 baud; 0 where there is no such code or rate.
long baudOfCode(std::int64_t code);
std::int64_t codeOfBaud(long baud);

}  // namespace zlt::sim
