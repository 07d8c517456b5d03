#pragma once

#include <optional>
#include <string_view>

namespace zlt {

/// What the external tools' result files say. Their texts are Latin-1, as read.

/// Whether the tool failed: its first line, and nothing else, says so.
bool saysFailed(std::string_view result);

/// The number of lines in a compiler's result less one, its status line.
int compiledLineCount(std::string_view result);

/// Stands for any program line beyond the 32767 that 16 bits hold.
inline constexpr int lineBeyond = 32768;

/// The program line that a failed compile names last, at most lineBeyond. Nothing when it names
/// none, or one below 16 bits.
std::optional<int> compileErrorLine(std::string_view result);

}  // namespace zlt
