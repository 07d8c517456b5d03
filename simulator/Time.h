#pragma once

#include <chrono>

namespace zlt::sim {

/// A point in time, counted from any fixed start. It is handed in wherever time passes, so that
/// nothing in the simulation itself asks a clock.
using Time = std::chrono::nanoseconds;

}  // namespace zlt::sim
