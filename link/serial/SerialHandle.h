#pragma once

#include <optional>
#include <string>

namespace zlt {

/// What an open serial port needs of the system beside Qt. `handle` is the descriptor,
/// QSerialPort::handle(). Not on Windows.
using SerialHandle = int;

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

}  // namespace zlt
