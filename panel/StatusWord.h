#pragma once

#include <cstdint>
#include <string_view>

namespace zlt {

/// The controller's status word, the reply to "MST": its low 24 bits.
class StatusWord {
 public:
    explicit StatusWord(std::int32_t value)
        : m_bits(static_cast<std::uint32_t>(value) & 0xFFFFFF) {}

    /// What the axis does, the last of the bits that says something: a limit error goes
    /// before motion, deceleration before acceleration.
    std::string_view motionText() const;

    bool negativeLimit() const { return bit(3); }
    bool positiveLimit() const { return bit(4); }
    bool home() const { return bit(5); }

 private:
    bool bit(unsigned number) const { return (m_bits >> number & 1U) != 0; }

    std::uint32_t m_bits;
};

/// What `Stat` shows while the axis stands still.
inline constexpr std::string_view idleText = "IDLE";

}  // namespace zlt
