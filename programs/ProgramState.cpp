#include "programs/ProgramState.h"

namespace zlt {

std::optional<ProgramState> programStateOfCode(std::int32_t code) {
    switch (code) {
        case 0:
            return ProgramState::idle;
        case 1:
            return ProgramState::running;
        case 2:
            return ProgramState::paused;
        case 4:
            return ProgramState::errored;
        default:
            return std::nullopt;
    }
}

ShownState shownState(ProgramState state) {
    switch (state) {
        case ProgramState::running:
            return {"Running", Meaning::underWay};
        case ProgramState::paused:
            return {"Paused", Meaning::atRest};
        case ProgramState::errored:
            return {"Errored", Meaning::atFault};
        case ProgramState::idle:
            break;
    }
    return {"Idle", Meaning::atRest};
}

}  // namespace zlt
