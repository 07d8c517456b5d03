#pragma once

#include <cstdint>
#include <optional>

#include "platform/ShownState.h"

namespace zlt {

/// What a program does.
enum class ProgramState { idle, running, paused, errored };

/// The state behind a code, the reply to "SASTAT". Nothing for a code that stands for none (3,
/// say): what is shown so far stays then.
std::optional<ProgramState> programStateOfCode(std::int32_t code);

/// How a screen shows it.
ShownState shownState(ProgramState state);

}  // namespace zlt
