#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "bench/Clients.h"

namespace zlt::bench {

/// What the exchanges of one variant took at one baud rate, all rounds together.
struct Samples {
    std::vector<std::chrono::nanoseconds> taken;
    long lost = 0;  ///< exchanges whose reply did not come in time
    /// The part of each that is the peer's, not the client's.
    std::vector<std::chrono::nanoseconds> peerLate;
};

/// The most that the panel's exchange may take, as a multiple of the wire's own time.
std::optional<double> aimOf(Variant variant, long baud);

void printHeader();
/// Prints the line of one variant at one baud rate. False when it misses its aim
/// or has lost an exchange.
bool printLine(long baud, Variant variant, const Samples& samples);
void printLegend();

}  // namespace zlt::bench
