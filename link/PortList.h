#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "link/Values.h"

namespace zlt {

/// The optional port list, in the current directory.
inline constexpr std::string_view portListFileName = "zlt-r-485.ports";

/// The port of which this is exactly the port text.
std::optional<PortNumber> exactPortNumber(std::string_view text);

/// The port numbers of a port list's text: lines such as "COM3=/dev/ttyUSB0", where a name
/// without a folder is one in /dev. Blank lines and lines beginning with "#" are skipped, so
/// are lines that make no sense; of two lines for one port the last holds.
std::map<PortNumber, std::string> parsePortList(std::string_view text);

}  // namespace zlt
