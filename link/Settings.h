#pragma once

#include <optional>
#include <string>
#include <string_view>

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

}  // namespace zlt
