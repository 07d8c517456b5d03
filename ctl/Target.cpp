#include "ctl/Target.h"

#include <algorithm>

#include "link/Settings.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"
#include "terminal/TerminalTalk.h"

namespace zlt::ctl {
namespace {

std::string inCapitals(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; });
    return text;
}

/// The number behind --port: that of its name, or of a device as the port list names them.
PortNumber portOf(const std::string& typed, PortDirectory& directory) {
    if (const auto number = exactPortNumber(inCapitals(typed)))
        return *number;
    return directory.numberOf(typed.find('/') == std::string::npos ? "/dev/" + typed : typed);
}

std::string addressOf(const std::string& typed) {
    try {
        return deviceAddress(typed);
    } catch (const BadAddress&) {
        throw Failure(ExitCode::refused,
                      inQuotes(typed) + " is no device ID from 01 to 99, nor 00.");
    }
}

}  // namespace

int wholeNumber(std::string_view what, const std::string& text, int least) {
    const auto [number, fault] = parseTyped(what, text);
    if (!number)
        throw Failure(ExitCode::refused, fault);
    if (*number < least)
        throw Failure(ExitCode::refused, std::string(what) + " is less than " +
                                             std::to_string(least) + ": " + inQuotes(text) + ".");
    return *number;
}

Target targetOf(const Arguments& arguments, Files& files, PortDirectory& directory) {
    const Settings settings = readSettings(files.read(settingsFileName).whole());
    Target target;
    const auto port = arguments.option("port");
    directory.refresh();
    target.connection.port = port ? portOf(*port, directory) : portNumberFromText(settings.port);
    target.portName = port.value_or(utf8FromLatin1(settings.port));
    const auto rate = arguments.option("baud");
    if (rate)
        (void)wholeNumber("--baud", *rate, 1);
    target.connection.baudRate = rate.value_or(settings.baud);
    target.connection.deviceId = addressOf(arguments.option("id").value_or(settings.deviceId));
    return target;
}

}  // namespace zlt::ctl
