#include "link/serial/PortDirectory.h"

#include <QFile>
#include <QSerialPortInfo>
#include <algorithm>
#include <fstream>
#include <sstream>
#include <tuple>

#include "link/serial/SerialHandle.h"

namespace zlt {
namespace {

/// "ttyUSB10" behind "ttyUSB9": by length first, then by letters.
std::pair<std::size_t, std::string_view> naturalOrder(const std::string& path) {
    return {path.size(), path};
}

/// A file's text; empty when it cannot be read.
std::string readText(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

/// Where an adapter is plugged in, as Linux's sysfs has it; empty elsewhere. Tells adapters of
/// one make without a serial number apart.
std::string usbPlace(const QSerialPortInfo& info) {
    std::error_code unknown;
    const auto device = std::filesystem::canonical(
        "/sys/class/tty/" + info.portName().toStdString() + "/device", unknown);
    if (unknown)
        return {};
    // The last folder bears the number of the moment, "ttyUSB0".
    return (device.filename() == info.portName().toStdString() ? device.parent_path() : device)
        .string();
}

SerialDevice describe(const QSerialPortInfo& info) {
    SerialDevice device;
    device.path = QFile::encodeName(info.systemLocation()).toStdString();
    device.usb = info.hasVendorIdentifier();
    QStringList words{info.manufacturer(), info.description()};
    words.removeAll(QString());
    words.removeDuplicates();
    device.maker = words.join(QLatin1Char(' ')).toStdString();
    if (device.usb)
        device.usbIdentity = QStringLiteral("%1:%2:%3")
                                 .arg(info.vendorIdentifier(), 4, 16, QLatin1Char('0'))
                                 .arg(info.productIdentifier(), 4, 16, QLatin1Char('0'))
                                 .arg(info.serialNumber())
                                 .toStdString() +
                             ' ' + usbPlace(info);
    return device;
}

}  // namespace

void orderDevices(std::vector<SerialDevice>& devices) {
    std::sort(devices.begin(), devices.end(), [](const SerialDevice& a, const SerialDevice& b) {
        return std::tuple(a.usb, a.usbIdentity, naturalOrder(a.path)) <
               std::tuple(b.usb, b.usbIdentity, naturalOrder(b.path));
    });
}

std::vector<SerialDevice> devicesOfThisMachine() {
    std::vector<SerialDevice> devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        devices.push_back(describe(info));
    return devices;
}

PortDirectory::PortDirectory(std::filesystem::path portList) : m_portList(std::move(portList)) {}

void PortDirectory::refresh() {
    m_fingerprint = fingerprint();
    m_entries.clear();
    m_failures.clear();  // a port may stand for another device now
    auto devices = devicesOfThisMachine();

#ifdef Q_OS_WIN
    for (const SerialDevice& device : devices) {
        const auto name = std::filesystem::path(device.path).filename().string();
        if (const auto number = exactPortNumber(name))
            m_entries[*number] = {name, device.maker};
    }
#else
    std::error_code unknown;
    m_fromList = std::filesystem::exists(m_portList, unknown);
    if (m_fromList) {
        for (const auto& [number, path] : parsePortList(readText(m_portList))) {
            const std::string device = canonicalDevice(path);
            const auto known = std::find_if(devices.begin(), devices.end(),
                                            [&](const auto& d) { return d.path == device; });
            m_entries[number] = {path, known == devices.end() ? std::string() : known->maker};
        }
        return;
    }
    orderDevices(devices);
    PortNumber number{1};
    for (const SerialDevice& device : devices) {
        if (number.value > portCount)
            break;
        m_entries[number] = {device.path, device.maker};
        ++number.value;
    }
#endif
}

void PortDirectory::refreshIfChanged() {
    if (fingerprint() != m_fingerprint)
        refresh();
}

std::string PortDirectory::fingerprint() const {
    std::string marks;
#ifdef Q_OS_WIN
    // There is nothing cheaper to tell by.
    for (const SerialDevice& device : devicesOfThisMachine())
        marks += device.path + ' ' + device.maker + '/';
#else
    // The maker's name comes with udev's data, a moment behind the device.
    for (const std::filesystem::path& path :
         {m_portList, std::filesystem::path("/dev"), std::filesystem::path("/run/udev/data")}) {
        std::error_code missing;
        const auto time = std::filesystem::last_write_time(path, missing);
        marks += missing ? "-" : std::to_string(time.time_since_epoch().count());
        marks += '/';
    }
#endif
    return marks;
}

std::optional<std::string> PortDirectory::device(PortNumber number) {
    refreshIfChanged();
    const auto found = m_entries.find(number);
    if (found == m_entries.end())
        return std::nullopt;
    return found->second.device;
}

PortEntry PortDirectory::entry(PortNumber number) const {
    const auto found = m_entries.find(number);
    return found == m_entries.end() ? PortEntry() : found->second;
}

void PortDirectory::noteOpening(PortNumber number, std::string failure) {
    m_failures[number] = std::move(failure);
}

std::string PortDirectory::lastFailure(PortNumber number) const {
    const auto found = m_failures.find(number);
    return found == m_failures.end() ? std::string() : found->second;
}

}  // namespace zlt
