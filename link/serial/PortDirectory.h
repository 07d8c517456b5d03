#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "link/PortList.h"
#include "link/Values.h"

namespace zlt {

/// A serial device of this machine. Texts are UTF-8.
struct SerialDevice {
    std::string path;   ///< "/dev/ttyUSB0"
    std::string maker;  ///< who made the adapter and what it is; empty when not known
    bool usb = false;
    std::string usbIdentity;  ///< vendor, product, serial number and place; orders USB adapters
};

/// What stands behind a port number. `device` is empty when nothing does.
struct PortEntry {
    std::string device;
    std::string maker;
};

/// The devices in the order in which they take the numbers from 1 up: built-in ports first,
/// then USB adapters in an order that does not depend on when they were plugged in.
void orderDevices(std::vector<SerialDevice>& devices);

/// The serial devices that this machine has now, in no particular order. Takes some 20 ms.
std::vector<SerialDevice> devicesOfThisMachine();

/// Says what stands behind each port number: the port list where there is one, else the
/// machine's devices.
class PortDirectory {
 public:
    /// `portList` is the port list's path, relative to the current directory.
    explicit PortDirectory(std::filesystem::path portList);

    /// Looks again at the list and the machine. Slow: never within a poll.
    void refresh();

    /// Looks again only when the list or the machine's devices have changed since.
    void refreshIfChanged();

    /// The device of a port, freshly looked up when it is not known or gone.
    std::optional<std::string> device(PortNumber number);

    /// What was found at the last look.
    PortEntry entry(PortNumber number) const;
    bool fromList() const { return m_fromList; }

    /// Remembers how the last try to open a port went: its failure, or nothing.
    void noteOpening(PortNumber number, std::string failure);
    std::string lastFailure(PortNumber number) const;

 private:
    std::string fingerprint() const;

    std::filesystem::path m_portList;
    std::map<PortNumber, PortEntry> m_entries;
    bool m_fromList = false;
    std::string m_fingerprint;
    std::map<PortNumber, std::string> m_failures;
};

}  // namespace zlt
