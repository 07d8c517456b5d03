#pragma once

#include "bench/Judge.h"

namespace zlt::bench {

/// How long it takes from a press on RSTOP to the first byte of what it sends, while the panel
/// polls over a paced wire; prints a row for each rate.
void measureStops(int rounds, Judge& judge);

}  // namespace zlt::bench
