#pragma once

#include <string_view>

namespace zlt {

/// What a state means beside its words.
enum class Meaning { atRest, underWay, atFault };

/// A state of the axis or of a program, as a screen shows it.
struct ShownState {
    std::string_view words;
    Meaning meaning = Meaning::atRest;
};

}  // namespace zlt
