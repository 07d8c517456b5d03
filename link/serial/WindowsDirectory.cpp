// Port numbers on Windows, which gives them out itself: port 3 is COM3.

#include "link/serial/PortDirectory.h"

namespace zlt {

std::string canonicalDevice(const std::string& device) {
    return device.substr(device.find_last_of('\\') + 1);
}

void PortDirectory::findEntries() {
    for (SerialDevice& device : m_devices)
        device.path = canonicalDevice(device.path);
    for (const SerialDevice& device : m_devices)
        if (const auto number = exactPortNumber(device.path))
            m_entries[*number] = entryFor(device.path);
}

std::string PortDirectory::fingerprint() const {
    std::string marks;
    // There is nothing cheaper to tell by.
    for (const SerialDevice& device : m_machine())
        marks += device.path + ' ' + device.maker + ' ' + device.usbIdentity + '/';
    return marks;
}

}  // namespace zlt
