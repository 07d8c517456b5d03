#include "panel/StatusWord.h"

#include <array>
#include <utility>

namespace zlt {

std::string_view StatusWord::motionText() const {
    // In bit order; each one that is set replaces the text before it.
    constexpr std::array<std::pair<unsigned, std::string_view>, 5> texts{
        {{0, "MOVING"}, {1, "ACCEL"}, {2, "DECEL"}, {6, "-LIM ERR"}, {7, "+LIM ERR"}}};
    std::string_view shown = idleText;
    for (const auto& [number, text] : texts)
        if (bit(number))
            shown = text;
    return shown;
}

}  // namespace zlt
