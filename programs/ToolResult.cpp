#include "programs/ToolResult.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {

bool saysFailed(std::string_view result) {
    const auto lines = splitLines(result);
    const std::string status = lines.empty() ? "" : lines.front();
    return status.find("FAILED") != std::string::npos || status.find("Failed") != std::string::npos;
}

int compiledLineCount(std::string_view result) {
    return static_cast<int>(splitLines(result).size()) - 1;
}

std::optional<int> compileErrorLine(std::string_view result) {
    constexpr std::size_t numberFrom = 6;  // counted from 0: the 7th character
    std::string named;
    for (const std::string& line : splitLines(result))
        if (line.find("Line") != std::string::npos)
            named = line.size() > numberFrom ? line.substr(numberFrom) : std::string();
    const auto number = parseInteger(named);
    if (number && *number >= INT16_MIN)
        return std::min(*number, lineBeyond);
    // Digits that are no number are too many of them.
    const bool tooMany = named.find_first_of("0123456789") != std::string::npos &&
                         named.find_first_not_of("0123456789 ") == std::string::npos;
    return tooMany ? std::optional(lineBeyond) : std::nullopt;
}

}  // namespace zlt
