#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/Values.h"

namespace zlt {

/// The settings file, in the current directory.
inline constexpr std::string_view settingsFileName = "zlt-r-485.ini";

/// The three texts of the start-up screen, as typed (Latin-1), nothing checked.
struct Settings {
    std::string port = "COM1";
    std::string baud = "9600";
    std::string deviceId = "01";
};

/// What a settings file says: three lines. Without a file (nothing) the defaults; with fewer
/// than three lines the default port and device ID, and whatever baud the file did give.
Settings readSettings(const std::optional<std::string>& fileText);

/// The file for these settings: three lines, each ended by CR LF.
std::string settingsFileText(const Settings& settings);

/// The optional port list, in the current directory.
inline constexpr std::string_view portListFileName = "zlt-r-485.ports";

/// What a port list says.
struct PortList {
    std::map<PortNumber, std::string> ports;
    /// The lines that make no sense, by their number in the file, from 1.
    std::vector<std::pair<int, std::string>> notUnderstood;
};

/// The port of which this is exactly the port text.
std::optional<PortNumber> exactPortNumber(std::string_view text);

/// The port numbers of a port list's text: lines such as "COM3=/dev/ttyUSB0", in capitals or
/// not, where a name without a folder is one in /dev. A byte order mark, blank lines and lines
/// beginning with "#" are skipped; of two lines for one port the last holds.
PortList parsePortList(std::string_view text);

/// A sentence that names the lines that make no sense; empty when all do.
std::string notUnderstoodText(const PortList& list);

}  // namespace zlt
