#pragma once

#include <chrono>
#include <string_view>

namespace zlt::bench {

using Clock = std::chrono::steady_clock;

/// The exchange that is measured: what a poll sends most often.
inline constexpr std::string_view deviceId = "01";
inline constexpr std::string_view command = "PX";
inline constexpr std::string_view request = "@01PX\r";
inline constexpr std::string_view position = "1234";
inline constexpr std::string_view reply = "#011234\r";

/// What `bytes` bytes take on the wire: start bit, 8 data bits, stop bit each.
constexpr std::chrono::nanoseconds wireTime(std::size_t bytes, long baud) {
    constexpr long bitsPerByte = 10;
    const auto bits = static_cast<long>(bytes) * bitsPerByte;
    return std::chrono::nanoseconds(bits * std::nano::den / baud);
}

/// The least that one exchange can take.
constexpr std::chrono::nanoseconds exchangeWireTime(long baud) {
    return wireTime(request.size() + reply.size(), baud);
}

}  // namespace zlt::bench
