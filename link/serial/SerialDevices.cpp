#include "link/serial/SerialDevices.h"

#include <QFile>
#include <QSerialPortInfo>
#include <algorithm>
#include <fstream>
#include <system_error>
#include <tuple>

namespace zlt {
namespace {

namespace fs = std::filesystem;

/// "ttyUSB10" after "ttyUSB9": by length first, then by letters.
std::pair<std::size_t, std::string_view> naturalOrder(const std::string& path) {
    return {path.size(), path};
}

/// Where an adapter is plugged in, as Linux's sysfs has it; empty elsewhere. Tells adapters of
/// one make without a serial number apart.
fs::path usbPlace(const std::string& name) {
    std::error_code unknown;
    const auto device = fs::canonical("/sys/class/tty/" + name + "/device", unknown);
    if (unknown)
        return {};
    // The last folder bears the number of the moment, "ttyUSB0".
    return device.filename() == name ? device.parent_path() : device;
}

SerialDevice describe(const QSerialPortInfo& info) {
    SerialDevice device;
    device.path = QFile::encodeName(info.systemLocation()).toStdString();
    device.usb = info.hasVendorIdentifier();
    device.maker = makerText(info.manufacturer().toStdString(), info.description().toStdString());
    if (!device.usb)
        return device;
    const fs::path place = usbPlace(info.portName().toStdString());
    device.serialNumber = info.serialNumber().toStdString();
    device.socket = place.filename().string();
    device.usbIdentity = QStringLiteral("%1:%2:")
                             .arg(info.vendorIdentifier(), 4, 16, QLatin1Char('0'))
                             .arg(info.productIdentifier(), 4, 16, QLatin1Char('0'))
                             .toStdString() +
                         device.serialNumber + ' ' + place.string();
    return device;
}

bool lists(const std::vector<SerialDevice>& devices, const std::string& path) {
    return std::any_of(devices.begin(), devices.end(),
                       [&](const SerialDevice& device) { return device.path == path; });
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
    for (const std::string& name : builtInPorts("/sys/class/tty")) {
        std::error_code unknown;
        const std::string path = "/dev/" + name;
        if (!lists(devices, path) && fs::exists(path, unknown))
            devices.push_back({.path = path});
    }
    return devices;
}

std::string makerText(std::string_view manufacturer, std::string_view description) {
    if (description.starts_with(manufacturer))
        return std::string(description);
    std::string text(manufacturer);
    if (!description.empty())
        text.append(" ").append(description);
    return text;
}

std::string distinction(const SerialDevice& device, const std::vector<SerialDevice>& all) {
    if (!device.usb)
        return {};
    const auto bearers = std::count_if(all.begin(), all.end(), [&](const SerialDevice& other) {
        return other.serialNumber == device.serialNumber;
    });
    if (!device.serialNumber.empty() && bearers <= 1)
        return "serial number " + device.serialNumber;
    return device.socket.empty() ? std::string() : "USB socket " + device.socket;
}

std::vector<std::string> builtInPorts(const fs::path& classFolder) {
    std::vector<std::string> names;
    std::error_code unknown;
    for (const auto& folder : fs::directory_iterator(classFolder, unknown)) {
        // Only serial_core's ports have a type; 0 stands for a number without hardware.
        int type = 0;
        if (std::ifstream(folder.path() / "type") >> type && type != 0)
            names.push_back(folder.path().filename().string());
    }
    return names;
}

}  // namespace zlt
