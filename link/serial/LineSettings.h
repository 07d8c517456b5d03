#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "link/serial/PortDirectory.h"

namespace zlt {

/// What a line is to be opened with.
struct LineSettings {
    std::string device;
    int baudRate = 0;  ///< positive
};

/// A line that takes no byte for so long is lost.
inline constexpr int blockedOutputMs = 500;
/// Why it was, UTF-8.
inline constexpr std::string_view outputBlocked = "The port takes no more characters";

/// The device behind a port number and the number of a baud rate's text. Nothing, and the reason in
/// `why` (UTF-8), when there is no such device, or the text is no positive whole number.
std::optional<LineSettings> lineSettings(PortDirectory& directory, PortNumber number,
                                         std::string_view baudRate, std::string& why);

/// What to say of a line that works at `real` where `asked` was asked for; empty where they are the
/// same, or nearly: a rate is made by dividing a clock, and need not be met to the last digit.
std::string rateRemark(int asked, int real);

}  // namespace zlt
