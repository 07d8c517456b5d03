#pragma once

#include <optional>
#include <string>

namespace zlt {

/// The file by which serial programs tell each other that one of them has a device.
struct LockFile {
    std::string path;         ///< "/var/lock/LCK..ttyUSB0"
    int process = 0;          ///< whose it is
    bool holderLives = true;  ///< that program is still there
    bool mayBeTaken = false;  ///< left by a program that is gone, this user may take it over
};

/// The lock file that stands for `device` now; nothing when there is none, or none that names a
/// program. Always nothing on Windows.
std::optional<LockFile> lockFileOf(const std::string& device);

}  // namespace zlt
