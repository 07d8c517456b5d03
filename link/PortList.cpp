#include "link/PortList.h"

#include "platform/Lines.h"

namespace zlt {
namespace {

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

}  // namespace

std::optional<PortNumber> exactPortNumber(std::string_view text) {
    for (PortNumber number{1}; number.value <= portCount; ++number.value)
        if (text == portText(number))
            return number;
    return std::nullopt;
}

std::map<PortNumber, std::string> parsePortList(std::string_view text) {
    std::map<PortNumber, std::string> ports;
    for (const std::string& raw : splitLines(text)) {
        const std::string line = trimmed(raw);
        const auto equals = line.find('=');
        if (line.starts_with('#') || equals == std::string::npos)
            continue;
        const auto number = exactPortNumber(trimmed(std::string_view(line).substr(0, equals)));
        const std::string device = trimmed(std::string_view(line).substr(equals + 1));
        if (number && !device.empty())
            ports[*number] = device.find('/') == std::string::npos ? "/dev/" + device : device;
    }
    return ports;
}

}  // namespace zlt
