#pragma once

#include <string>

namespace zlt::bench {

/// What this process holds at one moment.
struct Resources {
    long memoryKiB = 0;  ///< resident
    long openFiles = 0;

    static Resources now();
};

/// A line of the report: what was done, and what was held before and after.
std::string reportLine(const std::string& what, const Resources& before, const Resources& after);

}  // namespace zlt::bench
