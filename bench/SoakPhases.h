#pragma once

#include "bench/SoakBed.h"

namespace zlt::bench {

/// The phases of a soak run. Each makes a warm-up first, then prints what was held before and
/// after. False when something was wrong: a reply, an ending, a message, a file left open, or
/// (over the exchanges) more than 1 MiB of memory.
bool soakExchanges(SoakBed& bed, int count);
/// Opens, asks and closes; opens again, is pulled out, notices, closes, is plugged in again.
bool soakCycles(SoakBed& bed, int count);
/// Opens and closes each screen that is shown over another or beside one, with its load and first
/// tick.
bool soakScreens(SoakBed& bed, int count);

}  // namespace zlt::bench
