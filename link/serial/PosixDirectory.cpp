// Port numbers where devices have names of their own: by the port list, else in a stable order.

#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>

#include "link/serial/PortDirectory.h"

namespace zlt {
namespace {

namespace fs = std::filesystem;

/// A file's text, or the system's reason why it cannot be read.
std::optional<std::string> readText(const fs::path& file, std::string& reason) {
    std::error_code failure;
    if (!fs::is_regular_file(file, failure)) {
        reason = failure ? failure.message() : "it is no file";
        return std::nullopt;
    }
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    if (stream && stream.peek() != std::ifstream::traits_type::eof())
        text << stream.rdbuf();
    if (stream.is_open() && !stream.bad())
        return text.str();
    reason = std::error_code(errno, std::generic_category()).message();
    return std::nullopt;
}

}  // namespace

std::string canonicalDevice(const std::string& device) {
    std::error_code missing;
    const auto path = fs::canonical(device, missing);
    return missing ? device : path.string();
}

void PortDirectory::findEntries() {
    std::error_code unknown;
    m_fromList = fs::exists(m_portList, unknown);
    if (m_fromList)
        readList();
    else
        numberDevices();
}

void PortDirectory::readList() {
    std::string reason;
    const auto text = readText(m_portList, reason);
    if (!text) {
        m_listProblem =
            "The port list " + m_portList.filename().string() + " cannot be read: " + reason + ".";
        return;
    }
    const PortList list = parsePortList(*text);
    for (const auto& [number, path] : list.ports)
        m_entries[number] = entryFor(path);
    m_listProblem = notUnderstoodText(list);
}

void PortDirectory::numberDevices() {
    orderDevices(m_devices);
    PortNumber number{1};
    for (const SerialDevice& device : m_devices) {
        if (number.value > portCount)
            break;
        m_entries[number] = entryFor(device.path);
        ++number.value;
    }
}

std::string PortDirectory::fingerprint() const {
    std::string marks;
    // The maker's name comes with udev's data, a moment after the device.
    for (const fs::path& path : {m_portList, fs::path("/dev"), fs::path("/run/udev/data")}) {
        std::error_code missing;
        const auto time = fs::last_write_time(path, missing);
        marks += missing ? "-" : std::to_string(time.time_since_epoch().count());
        marks += '/';
    }
    return marks;
}

}  // namespace zlt
