#pragma once

#include <cstdint>

#include "platform/ShownState.h"

namespace zlt {

/// What the axis does.
enum class MotionState {
    idle,
    moving,
    accelerating,
    decelerating,
    negativeLimitError,
    positiveLimitError,
};

/// How `Stat` shows it.
ShownState shownState(MotionState motion);

/// The controller's status word, the reply to "MST": its low 24 bits.
class StatusWord {
 public:
    explicit StatusWord(std::int32_t value)
        : m_bits(static_cast<std::uint32_t>(value) & 0xFFFFFF) {}

    /// The last of the bits that says something: a limit error goes before motion, deceleration
    /// before acceleration.
    MotionState motion() const;

    bool negativeLimit() const { return bit(3); }
    bool positiveLimit() const { return bit(4); }
    bool home() const { return bit(5); }

 private:
    bool bit(unsigned number) const { return (m_bits >> number & 1U) != 0; }

    std::uint32_t m_bits;
};

}  // namespace zlt
