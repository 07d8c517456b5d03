#include "link/Values.h"

#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {

std::string portText(PortNumber number) {
    return "COM" + std::to_string(number.value);
}

PortNumber portNumberFromText(std::string_view text) {
    for (PortNumber twoDigits{10}; twoDigits.value <= portCount; ++twoDigits.value)
        if (text == portText(twoDigits))
            return twoDigits;
    if (text.empty() || text.back() < '0' || text.back() > '9')
        return {};
    return {text.back() - '0'};
}

std::optional<std::string_view> baudRateOfCode(std::int32_t code) {
    if (code < 1 || code > static_cast<std::int32_t>(baudRates.size()))
        return std::nullopt;
    return baudRates[static_cast<std::size_t>(code - 1)];
}

FirmwareVersion firmwareVersion(std::string_view command, std::string_view versionText) {
    const std::string_view digits = versionText.size() > 1 ? versionText.substr(1, 3) : "";
    if (const auto number = parseInteger(digits))
        return {*number};
    throw ConversionError("The reply to the command " + utf8FromLatin1(command) +
                          " is not a firmware version: " + inQuotes(utf8FromLatin1(versionText)));
}

}  // namespace zlt
