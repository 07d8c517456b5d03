#include "panel/StatusWord.h"

#include <array>
#include <utility>

namespace zlt {

ShownState shownState(MotionState motion) {
    switch (motion) {
        case MotionState::moving:
            return {"MOVING", Meaning::underWay};
        case MotionState::accelerating:
            return {"ACCEL", Meaning::underWay};
        case MotionState::decelerating:
            return {"DECEL", Meaning::underWay};
        case MotionState::negativeLimitError:
            return {"-LIM ERR", Meaning::atFault};
        case MotionState::positiveLimitError:
            return {"+LIM ERR", Meaning::atFault};
        case MotionState::idle:
            break;
    }
    return {"IDLE", Meaning::atRest};
}

MotionState StatusWord::motion() const {
    // In bit order; each one that is set replaces the state before it.
    constexpr std::array<std::pair<unsigned, MotionState>, 5> states{
        {{0, MotionState::moving},
         {1, MotionState::accelerating},
         {2, MotionState::decelerating},
         {6, MotionState::negativeLimitError},
         {7, MotionState::positiveLimitError}}};
    MotionState motion = MotionState::idle;
    for (const auto& [number, state] : states)
        if (bit(number))
            motion = state;
    return motion;
}

}  // namespace zlt
