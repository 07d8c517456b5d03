#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "panel/TrendColumns.h"

namespace zlt {

/// The values from the bottom of a plot to its top.
struct TrendScale {
    double low = 0, high = 1;

    [[nodiscard]] double range() const { return high - low; }
    /// 0 at the bottom, 1 at the top.
    [[nodiscard]] double place(double value) const { return (value - low) / range(); }
    bool operator==(const TrendScale&) const = default;
};

/// One of 1, 2, 5, 10, 20 and so on, and no fraction: so many of it at the most go into the range.
double trendStep(double range, int most);
/// The step of a time axis, as clocks are divided: so many at the most go into the span.
std::chrono::milliseconds trendTimeStep(std::chrono::nanoseconds span, int most);

/// A scale that holds all of these curves, from one step to another. Nothing to hold: 0 to 1.
TrendScale trendFit(const std::vector<const std::vector<TrendBar>*>& curves);

/// A length of time for the operator: "10 s", "1 min", "1 h", "250 ms".
std::string trendSpanText(std::chrono::nanoseconds span);

}  // namespace zlt
