#pragma once

#include <array>
#include <chrono>
#include <string_view>

#include "bench/Statistics.h"

namespace zlt::bench {

using Clock = std::chrono::steady_clock;

/// The exchange that is measured: what a poll sends most often.
inline constexpr std::string_view deviceId = "01";
inline constexpr std::string_view command = "PX";
inline constexpr std::string_view request = "@01PX\r";
inline constexpr std::string_view position = "1234";
inline constexpr std::string_view reply = "#011234\r";

/// A line between client and controller: its baud rate, and whether bytes take their time on it.
struct Line {
    std::string_view name;
    long baud = 0;
    bool paced = true;
};

inline constexpr std::array lines{Line{"9600", 9600}, Line{"38400", 38400}, Line{"115200", 115200},
                                  Line{"unpaced", 115200, false}};

/// What `bytes` bytes take on the wire: start bit, 8 data bits, stop bit each.
constexpr std::chrono::nanoseconds wireTime(std::size_t bytes, const Line& line) {
    constexpr long bitsPerByte = 10;
    const auto bits = static_cast<long>(bytes) * bitsPerByte;
    return std::chrono::nanoseconds(line.paced ? bits * std::nano::den / line.baud : 0);
}

/// The least that one exchange can take.
constexpr std::chrono::nanoseconds exchangeWireTime(const Line& line) {
    return wireTime(request.size() + reply.size(), line);
}

}  // namespace zlt::bench
