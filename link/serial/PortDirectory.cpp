#include "link/serial/PortDirectory.h"

#include <algorithm>

namespace zlt {

namespace fs = std::filesystem;

PortDirectory::PortDirectory(fs::path portList, Machine machine)
    : m_portList(std::move(portList)), m_machine(std::move(machine)) {}

void PortDirectory::refresh() {
    m_fingerprint = fingerprint();
    m_entries.clear();
    m_openings.clear();  // a port may stand for another device now
    m_listProblem.clear();
    m_devices = m_machine();
    findEntries();
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
    for (const SerialDevice& known : m_devices)
        if (known.path == device && known.usb)
            return known.usbIdentity;
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
