#include "programs/ProgramState.h"

namespace zlt {

std::optional<std::string_view> programStateText(std::int32_t code) {
    switch (code) {
        case 0:
            return "Idle";
        case 1:
            return "Running";
        case 2:
            return "Paused";
        case 4:
            return "Errored";
        default:
            return std::nullopt;
    }
}

}  // namespace zlt
