#include "link/Settings.h"

#include <algorithm>

#include "platform/Text.h"

namespace zlt {
namespace {

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

std::string capitals(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return text;
}

}  // namespace

Settings readSettings(const std::optional<std::string>& fileText) {
    Settings settings;
    const auto lines = splitLines(fileText.value_or(""));
    if (lines.size() >= 2)
        settings.baud = lines[1];
    if (lines.size() >= 3) {
        settings.port = lines[0];
        settings.deviceId = lines[2];
    }
    return settings;
}

std::string settingsFileText(const Settings& settings) {
    return settings.port + "\r\n" + settings.baud + "\r\n" + settings.deviceId + "\r\n";
}

std::optional<PortNumber> exactPortNumber(std::string_view text) {
    for (PortNumber number{1}; number.value <= portCount; ++number.value)
        if (text == portText(number))
            return number;
    return std::nullopt;
}

PortList parsePortList(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    PortList list;
    int lineNumber = 0;
    for (const std::string& raw : splitLines(text)) {
        ++lineNumber;
        const std::string line = trimmed(raw);
        if (line.empty() || line.starts_with('#'))
            continue;
        const auto equals = std::min(line.find('='), line.size());
        const auto number = exactPortNumber(capitals(trimmed(line.substr(0, equals))));
        const std::string device =
            trimmed(std::string_view(line).substr(std::min(equals + 1, line.size())));
        if (!number || device.empty())
            list.notUnderstood.emplace_back(lineNumber, line);
        else
            list.ports[*number] = device.find('/') == std::string::npos ? "/dev/" + device : device;
    }
    return list;
}

std::string notUnderstoodText(const PortList& list) {
    if (list.notUnderstood.empty())
        return {};
    const auto& [first, text] = list.notUnderstood.front();
    const std::string file(portListFileName);
    if (list.notUnderstood.size() == 1)
        return "Line " + std::to_string(first) + " of the port list " + file +
               " is not understood: " + inQuotes(text);
    std::string numbers = std::to_string(first);
    for (std::size_t index = 1; index < list.notUnderstood.size(); ++index)
        numbers += ", " + std::to_string(list.notUnderstood[index].first);
    return "Lines " + numbers + " of the port list " + file + " are not understood.";
}

}  // namespace zlt
