#include "link/serial/PortDirectory.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>

#include "link/serial/SerialHandle.h"

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

PortDirectory::PortDirectory(fs::path portList, Machine machine)
    : m_portList(std::move(portList)), m_machine(std::move(machine)) {}

void PortDirectory::refresh() {
    m_fingerprint = fingerprint();
    m_entries.clear();
    m_openings.clear();  // a port may stand for another device now
    m_listProblem.clear();
    m_devices = m_machine();

#ifdef Q_OS_WIN
    for (const SerialDevice& device : m_devices) {
        const auto name = fs::path(device.path).filename().string();
        if (const auto number = exactPortNumber(name)) {
            m_entries[*number] = entryFor(device.path);
            m_entries[*number].device = name;
        }
    }
#else
    std::error_code unknown;
    m_fromList = fs::exists(m_portList, unknown);
    if (m_fromList)
        readList();
    else
        numberDevices();
#endif
    if (!m_unnumbered.empty())
        m_entries[beyondLast] = entryFor(m_unnumbered);
}

PortNumber PortDirectory::numberOf(const std::string& device) {
    refreshIfChanged();
    const std::string wanted = canonicalDevice(device);
    for (const auto& [number, entry] : m_entries)
        if (number <= PortNumber{portCount} && canonicalDevice(entry.device) == wanted)
            return number;
    m_unnumbered = device;
    m_entries[beyondLast] = entryFor(device);
    return beyondLast;
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

PortEntry PortDirectory::entryFor(const std::string& path) const {
    const std::string device = canonicalDevice(path);
    const auto known = std::find_if(m_devices.begin(), m_devices.end(),
                                    [&](const SerialDevice& d) { return d.path == device; });
    if (known == m_devices.end())
        return {path, {}};
    const std::string mark = distinction(*known, m_devices);
    PortEntry entry{path, known->maker, known->usb};
    if (!mark.empty())
        entry.maker += (entry.maker.empty() ? "" : ", ") + mark;
    entry.adapter = entry.usb ? entry.maker : device;
    return entry;
}

void PortDirectory::refreshIfChanged() {
    if (fingerprint() != m_fingerprint)
        refresh();
}

std::string PortDirectory::fingerprint() const {
    std::string marks;
#ifdef Q_OS_WIN
    // There is nothing cheaper to tell by.
    for (const SerialDevice& device : m_machine())
        marks += device.path + ' ' + device.maker + '/';
#else
    // The maker's name comes with udev's data, a moment after the device.
    for (const fs::path& path : {m_portList, fs::path("/dev"), fs::path("/run/udev/data")}) {
        std::error_code missing;
        const auto time = fs::last_write_time(path, missing);
        marks += missing ? "-" : std::to_string(time.time_since_epoch().count());
        marks += '/';
    }
#endif
    return marks;
}

std::optional<std::string> PortDirectory::device(PortNumber number) {
    refreshIfChanged();
    if (isSettled(number)) {
        const bool same =
            !m_settled->device.empty() && identityOf(m_settled->device) == m_settled->identity;
        return same ? std::optional(m_settled->device) : std::nullopt;
    }
    const auto found = m_entries.find(number);
    if (found == m_entries.end())
        return std::nullopt;
    return found->second.device;
}

bool PortDirectory::numberStillMeant(PortNumber number) {
    refreshIfChanged();
    if (!isSettled(number))
        return true;
    const std::string now = entry(number).device;
    return !now.empty() && identityOf(now) == m_settled->identity;
}

PortEntry PortDirectory::entry(PortNumber number) const {
    const auto found = m_entries.find(number);
    return found == m_entries.end() ? PortEntry() : found->second;
}

void PortDirectory::settle(PortNumber number) {
    refreshIfChanged();
    const std::string device = entry(number).device;
    m_settled = Settled{number, device, identityOf(device)};
}

std::string PortDirectory::identityOf(const std::string& path) const {
    std::string device = canonicalDevice(path);
    for (const SerialDevice& known : m_devices) {
        // Windows goes by the bare name, "COM3".
        const bool same = known.path == device || fs::path(known.path).filename() == device;
        if (same && known.usb)
            return known.usbIdentity;
    }
    return device;
}

void PortDirectory::noteOpening(PortNumber number, Opening opening) {
    m_openings[number] = std::move(opening);
}

Opening PortDirectory::lastOpening(PortNumber number) const {
    const auto found = m_openings.find(number);
    return found == m_openings.end() ? Opening() : found->second;
}

}  // namespace zlt
