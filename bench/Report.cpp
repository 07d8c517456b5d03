#include "bench/Report.h"

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <stdexcept>
#include <string>

namespace zlt::bench {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using Microseconds = std::chrono::duration<double, std::micro>;
using Times = std::vector<std::chrono::nanoseconds>;

std::chrono::nanoseconds median(Times times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

std::chrono::nanoseconds mean(const Times& times) {
    const auto total =
        std::accumulate(times.begin(), times.end(), std::chrono::nanoseconds::zero());
    return total / static_cast<std::chrono::nanoseconds::rep>(times.size());
}

std::string verdict(double ratio, double aim, long lost) {
    char text[48];
    std::snprintf(text, sizeof text, "%.2f %s%s", aim, ratio <= aim ? "met" : "MISSED",
                  lost > 0 ? ", but exchanges LOST" : "");
    return text;
}

}  // namespace

std::optional<double> aimOf(Variant variant, long baud) {
    if (variant != Variant::panel)
        return std::nullopt;
    if (baud == 9600)
        return 1.02;
    if (baud == 115200)
        return 1.15;
    return std::nullopt;
}

void printHeader() {
    std::printf("%8s %9s  %-12s %9s %5s %10s %8s %12s %8s  %s\n", "baud", "wire ms", "variant",
                "exchanges", "lost", "median ms", "mean ms", "median/wire", "peer us", "aim");
}

bool printLine(long baud, Variant variant, const Samples& samples) {
    const std::string name(nameOf(variant));
    if (samples.taken.empty())
        throw std::runtime_error("no exchange was answered: " + name);
    const Milliseconds wire = exchangeWireTime(baud);
    const Milliseconds typical = median(samples.taken);
    const double ratio = typical / wire;
    const auto aim = aimOf(variant, baud);
    std::printf("%8ld %9.3f  %-12s %9zu %5ld %10.3f %8.3f %12.3f %8.0f  %s\n", baud, wire.count(),
                name.c_str(), samples.taken.size(), samples.lost, typical.count(),
                Milliseconds(mean(samples.taken)).count(), ratio,
                Microseconds(median(samples.peerLate)).count(),
                aim ? verdict(ratio, *aim, samples.lost).c_str() : "");
    std::fflush(stdout);
    return !aim || (ratio <= *aim && samples.lost == 0);
}

void printLegend() {
    std::printf(R"(
One exchange is %zu bytes out and %zu bytes in, 10 bits each on the wire.
  panel        the panel's own exchange
  1 ms sleeps  the same exchange, with plain sleeps where the panel's wait wakes on data
  raw read     blocking reads of the device: what this system can do
  lost         exchanges without a reply in time: a busy machine keeps the peer waiting
  peer us      by how much the peer sent the last byte late (median); part of the measured time
)",
                request.size(), reply.size());
}

}  // namespace zlt::bench
