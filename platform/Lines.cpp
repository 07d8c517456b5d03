#include "platform/Lines.h"

namespace zlt {

std::vector<std::string> splitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        lines.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            break;
        const bool pair = text.substr(end, 2) == "\r\n";
        text.remove_prefix(end + (pair ? 2 : 1));
    }
    return lines;
}

}  // namespace zlt
