#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "link/PanelLink.h"
#include "platform/ShownState.h"
#include "programs/RunControl.h"

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
    [[nodiscard]] MotionState motion() const;

    [[nodiscard]] bool negativeLimit() const { return bit(3); }
    [[nodiscard]] bool positiveLimit() const { return bit(4); }
    [[nodiscard]] bool home() const { return bit(5); }

 private:
    [[nodiscard]] bool bit(unsigned number) const { return (m_bits >> number & 1U) != 0; }

    std::uint32_t m_bits;
};

/// What one pass of the poll has read. A field without a value is to be left as it stands.
struct AxisReading {
    /// The part that older firmware does not answer.
    struct Program {
        std::optional<bool> incremental;
        std::optional<bool> output;
        std::optional<std::int32_t> line;
        std::optional<ProgramState> state;
    };

    std::string current, position, encoder;  ///< as they came, Latin-1
    /// When the position was in: the others came within this pass.
    std::chrono::steady_clock::time_point time{};
    std::optional<StatusWord> status;
    std::optional<bool> driverEnabled;
    std::optional<Program> program;
};

/// By how much the encoder lags behind the position, of the same pass. Nothing when either is no
/// number.
std::optional<std::int64_t> followingError(const AxisReading& reading);

/// Reads the axis once, to the end even when the controller falls silent on the way: "0" stands
/// for each missing reply then. Throws ConversionError for a reply that should be a number and is
/// none; but not after a time-out, when the replies may be one late.
AxisReading readAxis(PanelLink& link);

}  // namespace zlt
