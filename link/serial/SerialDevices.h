#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zlt {

/// A serial device of this machine. Texts are UTF-8.
struct SerialDevice {
    std::string path = {};   ///< "/dev/ttyUSB0", on Windows "\\\\.\\COM3"
    std::string maker = {};  ///< who made the adapter and what it is; empty when not known
    bool usb = false;
    std::string usbIdentity =
        {};  ///< vendor, product, serial number and place; orders USB adapters
    std::string serialNumber = {};  ///< of a USB adapter; many have none
    std::string socket = {};        ///< the USB socket it is in, "1-1.2:1.0"; empty when not known
};

/// One name for one device: its own path, links followed, or the name unchanged when there is no
/// such device; on Windows the bare name, "COM3", as asking for a path would open it.
std::string canonicalDevice(const std::string& device);

/// The devices in the order in which they take the numbers from 1 up: built-in ports first,
/// then USB adapters in an order that does not depend on when they were plugged in.
void orderDevices(std::vector<SerialDevice>& devices);

/// The serial devices that this machine has now, in no particular order. Takes some 20 ms.
std::vector<SerialDevice> devicesOfThisMachine();

/// Who made an adapter and what it is, without saying a word twice.
std::string makerText(std::string_view manufacturer, std::string_view description);

/// What tells a USB adapter from the others of its make: its serial number, else, or where
/// another adapter bears the same, the socket it is in. Empty for a built-in port.
std::string distinction(const SerialDevice& device, const std::vector<SerialDevice>& all);

/// The built-in ports that have hardware, "ttyS0", as Linux's /sys/class/tty says, whoever asks
/// and whoever holds them. Qt finds them only while it can open them.
std::vector<std::string> builtInPorts(const std::filesystem::path& classFolder);

}  // namespace zlt
