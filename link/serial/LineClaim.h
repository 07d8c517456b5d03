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
/// program.
std::optional<LockFile> lockFileOf(const std::string& device);

/// This program's claim on a serial line, by the locks that programs agree on: taken before
/// anything is changed on the line, so that one that another program holds stays as it is. Not on
/// Windows, where opening is exclusive by itself.
class LineClaim {
 public:
    LineClaim() = default;
    ~LineClaim() { release(); }
    LineClaim(const LineClaim&) = delete;
    LineClaim& operator=(const LineClaim&) = delete;

    /// Takes flock(2) on the device. False when another program holds it by that lock, by a lock
    /// file, or has opened it for itself alone. True also for a device that cannot be opened,
    /// which opening it tells in the system's words.
    bool take(const std::string& device);
    void release();

 private:
    bool lock();

    int m_handle = -1;
};

}  // namespace zlt
