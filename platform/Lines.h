#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zlt {

/// The lines of a file's text, without their ends. CR LF, LF and CR each end a line; text
/// behind the last end is a line too.
std::vector<std::string> splitLines(std::string_view text);

}  // namespace zlt
