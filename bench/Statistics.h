#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace zlt::bench {

using Times = std::vector<std::chrono::nanoseconds>;
using Milliseconds = std::chrono::duration<double, std::milli>;
using Microseconds = std::chrono::duration<double, std::micro>;

/// Of at least one value.
template <class Value>
Value median(std::vector<Value> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace zlt::bench
