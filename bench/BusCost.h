#pragma once

#include "bench/Judge.h"

namespace zlt::bench {

/// What the log of the bus adds to an exchange, with nobody looking; prints one line.
void measureBusLog(int rounds, Judge& judge);

}  // namespace zlt::bench
