#pragma once

#include <string>

#include "bench/Judge.h"

namespace zlt::bench {

/// Starts the start-up screen and an empty window of 40 widgets in turn, each in a process of
/// its own, and prints how long each takes until it is painted.
void measureFirstPaint(int rounds, Judge& judge);

/// The process: shows what `window` names, prints when its first paint was over, by the steady
/// clock in nanoseconds, and returns the exit code.
int showFirstPaint(const std::string& window, int argc, char** argv);

}  // namespace zlt::bench
