#pragma once

#include "bench/Judge.h"

namespace zlt::bench {

/// Lets the control panel poll a controller whose values all change, and prints for how much of
/// the time bytes were on the wire, and what that took of the processor. Needs a QApplication.
void measureProgram(int rounds, Judge& judge);

}  // namespace zlt::bench
