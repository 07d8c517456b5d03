#pragma once

#include <QtGlobal>
#include <optional>
#include <string>

namespace zlt {

/// What an open serial port needs of the system beside Qt. `handle` is the descriptor (on
/// Windows the handle) of QSerialPort::handle().
#ifdef Q_OS_WIN
using SerialHandle = void*;
#else
using SerialHandle = int;
#endif

/// Asks the driver for short replies at once: adapters of one family hold them back for 16 ms
/// otherwise, and answer some sixty requests a second whatever the baud rate. Linux's
/// ASYNC_LOW_LATENCY (serial_core, TIOCGSERIAL and TIOCSSERIAL); any user may set it. A driver
/// that knows no such thing refuses, which is no error. To be asked right after opening, before
/// the first request. Elsewhere nothing.
void askForLowLatency(SerialHandle handle);

/// The baud rate at which the line really works: some drivers take a rate that they cannot do,
/// report success and stay at another. Nothing where the system does not tell.
std::optional<int> baudRateInUse(SerialHandle handle);

/// Whether this user has the right to read and write a device, whoever holds it now.
bool mayReadAndWrite(const std::string& device);

/// The device's own path, links followed; the name unchanged when there is no such device, and on
/// Windows.
std::string canonicalDevice(const std::string& device);

}  // namespace zlt
