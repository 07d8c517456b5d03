#pragma once

#include <string>

namespace zlt {

/// This program's claim on a serial line, by the locks that programs agree on: taken before
/// anything is changed on the line, so that one that another program holds stays as it is.
class LineClaim {
 public:
    LineClaim() = default;
    ~LineClaim() { release(); }
    LineClaim(const LineClaim&) = delete;
    LineClaim& operator=(const LineClaim&) = delete;

    /// Takes flock(2) on the device. False when another program holds it by that lock, by a lock
    /// file, or has opened it for itself alone. True also for a device that cannot be opened,
    /// which opening it tells in the system's words, and on Windows, where opening is exclusive
    /// by itself.
    bool take(const std::string& device);
    void release();

 private:
    bool lock();

    int m_handle = -1;
};

}  // namespace zlt
