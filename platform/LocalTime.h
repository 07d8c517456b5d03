#pragma once

#include <ctime>

namespace zlt {

/// A time by the calendar and clock of this place.
std::tm localTime(std::time_t time);

}  // namespace zlt
