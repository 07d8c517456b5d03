#include "bench/Resources.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace zlt::bench {

Resources Resources::now() {
    Resources held;
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmRSS:")
            status >> held.memoryKiB;
    for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code closed;
        // The alarm clocks of Qt's painting threads come and go with them.
        held.openFiles += read_symlink(file, closed) != "anon_inode:[eventfd]" ? 1 : 0;
    }
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
