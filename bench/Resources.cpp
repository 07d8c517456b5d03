#include "bench/Resources.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace zlt::bench {

Resources Resources::now() {
    Resources held;
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmRSS:")
            status >> held.memoryKiB;
    const std::filesystem::directory_iterator files("/proc/self/fd");
    held.openFiles = std::distance(begin(files), end(files));
    return held;
}

std::string reportLine(const std::string& what, const Resources& before, const Resources& after) {
    char line[160];
    std::snprintf(line, sizeof line, "%-34s %8ld -> %8ld KiB  %+6ld   files %3ld -> %3ld",
                  what.c_str(), before.memoryKiB, after.memoryKiB,
                  after.memoryKiB - before.memoryKiB, before.openFiles, after.openFiles);
    return line;
}

}  // namespace zlt::bench
