#pragma once

#include "bench/Judge.h"

namespace zlt::bench {

/// Fills the trend with an hour of passes and prints how long a frame of it takes at each span, and
/// what a day of passes holds of memory. Needs a QApplication.
void measureTrend(int rounds, Judge& judge);

}  // namespace zlt::bench
