#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "link/PanelLink.h"
#include "panel/StatusWord.h"
#include "programs/ProgramState.h"

namespace zlt {

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
    std::optional<StatusWord> status;
    std::optional<bool> driverEnabled;
    std::optional<Program> program;
};

/// Reads the axis once, to the end even when the controller falls silent on the way: "0" stands
/// for each missing reply then. Throws ConversionError for a reply that should be a number and is
/// none; but not after a time-out, when the replies may be one behind.
AxisReading readAxis(PanelLink& link);

}  // namespace zlt
