#pragma once

#include <QtGlobal>
#include <string>

namespace zlt {

/// What an open serial port needs of the system beside Qt. `handle` is the descriptor (on
/// Windows the handle) of QSerialPort::handle().
#ifdef Q_OS_WIN
using SerialHandle = void*;
#else
using SerialHandle = int;
#endif

/// Takes the lock that terminal programs and firmware tools agree on, flock(2). False when
/// another program holds it. On Windows opening is exclusive by itself: always true.
bool takeExclusively(SerialHandle handle);

/// Whether this user has the right to read and write a device, whoever holds it now.
bool mayReadAndWrite(const std::string& device);

/// The device's own path behind links; the name unchanged when there is no such device.
std::string canonicalDevice(const std::string& device);

}  // namespace zlt
