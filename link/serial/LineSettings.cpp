#include "link/serial/LineSettings.h"

#include <cstdint>
#include <cstdlib>
#include <limits>

#include "platform/NumberConversion.h"

namespace zlt {
namespace {

/// The number of a baud rate's text; nothing when it is no positive whole number.
std::optional<int> baudRateOf(std::string_view text) {
    if (text.find('.') != std::string_view::npos)
        return std::nullopt;
    const auto baudRate = parseInteger(text);
    return baudRate && *baudRate > 0 ? baudRate : std::nullopt;
}

/// Why baudRateOf() found none.
std::string badBaudRate(std::string_view text) {
    const bool number = !text.empty() && text.find_first_not_of("0123456789") == text.npos;
    if (number && text.find_first_not_of('0') != text.npos)
        return "The baud rate is beyond " + std::to_string(std::numeric_limits<int>::max());
    return "The baud rate is not a positive whole number";
}

}  // namespace

std::optional<LineSettings> lineSettings(PortDirectory& directory, PortNumber number,
                                         std::string_view baudRate, std::string& why) {
    const auto device = directory.device(number);
    const auto rate = baudRateOf(baudRate);
    if (device && rate)
        return LineSettings{*device, *rate};
    if (device)
        why = badBaudRate(baudRate);
    else if (directory.isSettled(number))
        why = "The device that was connected as " + portText(number) + " is gone";
    else
        why = "No device stands behind " + portText(number);
    return std::nullopt;
}

std::string rateRemark(int asked, int real) {
    constexpr int percentAllowed = 3;
    if (std::abs(std::int64_t{real} - asked) * 100 <= std::int64_t{asked} * percentAllowed)
        return {};
    return "The adapter works at " + std::to_string(real) + " instead of " + std::to_string(asked) +
           ".";
}

}  // namespace zlt
