#include "panel/TrendScale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zlt {
namespace {

using namespace std::chrono_literals;

/// Steps on a scale of its own height.
constexpr int stepsOfAFit = 5;

}  // namespace

double trendStep(double range, int most) {
    const double least = std::max(range / most, 1.0);
    const double decade = std::pow(10.0, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * decade >= least * (1 - 1e-9))
            return step * decade;
    return 10 * decade;
}

std::chrono::milliseconds trendTimeStep(std::chrono::nanoseconds span, int most) {
    constexpr std::array<std::chrono::milliseconds, 20> steps{
        5ms, 10ms, 20ms, 50ms, 100ms, 200ms, 500ms, 1s,    2s,    5s,
        10s, 15s,  30s,  1min, 2min,  5min,  10min, 15min, 30min, 1h};
    const auto enough =
        std::find_if(steps.begin(), steps.end(), [&](auto step) { return step * most >= span; });
    return enough == steps.end() ? steps.back() : *enough;
}

TrendScale trendFit(const std::vector<const std::vector<TrendBar>*>& curves) {
    double low = std::numeric_limits<double>::max(), high = std::numeric_limits<double>::lowest();
    for (const auto* curve : curves)
        for (const TrendBar& bar : *curve) {
            low = std::min(low, bar.low);
            high = std::max(high, bar.high);
        }
    if (low > high)
        return {};
    const double step = trendStep(high - low, stepsOfAFit);
    TrendScale fit{std::floor(low / step) * step, std::ceil(high / step) * step};
    if (fit.low == fit.high)
        fit = {fit.low - step, fit.high + step};
    return fit;
}

std::string trendSpanText(std::chrono::nanoseconds span) {
    const auto rounded = std::chrono::round<std::chrono::milliseconds>(span).count();
    const auto inUnits = [rounded](std::int64_t unit, const char* name) {
        const std::int64_t tenths = (rounded * 10 + unit / 2) / unit;
        std::string text = std::to_string(tenths / 10);
        if (tenths % 10 != 0)
            text += "." + std::to_string(tenths % 10);
        return text + " " + name;
    };
    if (rounded < 1000)
        return inUnits(1, "ms");
    if (rounded < 60'000)
        return inUnits(1000, "s");
    return rounded < 3'600'000 ? inUnits(60'000, "min") : inUnits(3'600'000, "h");
}

}  // namespace zlt
