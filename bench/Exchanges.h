#pragma once

#include <string>

#include "bench/Judge.h"

namespace zlt::bench {

/// Measures one exchange over each line with each client, all clients in turn, round by round,
/// and prints the table. `python` is an interpreter that has pyserial.
void measureExchanges(int rounds, const std::string& python, Judge& judge);

}  // namespace zlt::bench
