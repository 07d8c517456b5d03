#pragma once

#include <string>
#include <vector>

#include "panel/AxisReading.h"
#include "platform/ShownState.h"

namespace zlt::ctl {

/// One value of a reading. Texts are Latin-1; an empty one is not known.
struct StatusValue {
    std::string_view name;
    std::string text;
    Meaning meaning = Meaning::atRest;
};

/// A reading as values in their order; the program's are missing where the firmware does not tell
/// them.
std::vector<StatusValue> valuesOf(const AxisReading& reading);

/// All names, in their order.
std::vector<std::string_view> statusNames();

/// One line of a table: the values with commas between, each in quotes that needs them.
std::string csvLine(const std::vector<StatusValue>& values);
/// The line above it.
std::string csvHead(const std::vector<StatusValue>& values);

}  // namespace zlt::ctl
