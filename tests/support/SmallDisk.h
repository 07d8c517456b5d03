#pragma once

#include <filesystem>

namespace zlt::test {

/// A folder on a disk of its own that takes two pages of 4 KiB. Where the test may not mount one,
/// no file that it writes may be longer than both, which programs meet at the same place.
class SmallDisk {
 public:
    static constexpr std::size_t size = 8 * 1024;

    explicit SmallDisk(std::filesystem::path folder);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

 private:
    std::filesystem::path m_folder;
    bool m_mounted;
};

}  // namespace zlt::test
