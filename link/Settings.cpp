#include "link/Settings.h"

#include "platform/Text.h"

namespace zlt {

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

}  // namespace zlt
