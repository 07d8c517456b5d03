#pragma once

#include <string>
#include <vector>

namespace zlt {

/// A program that holds a serial device.
struct PortUser {
    std::string program;  ///< its short name; empty when the system does not tell
    int process = 0;
};

/// The other programs that hold `device` open or locked, as far as this user may see. From
/// Linux's /proc (open files and flock(2)) and the lock files below /var/lock, without
/// touching the device. Elsewhere always empty; not on Windows.
std::vector<PortUser> otherUsersOf(const std::string& device);

/// Whether another program has `device` open, as far as this user may see. Elsewhere than on
/// Linux never.
bool isOpenElsewhere(const std::string& device);

}  // namespace zlt
