// The settings file: whatever it holds, the start-up screen gets three lines of text, and saves
// them so that they come back the same.

#include "link/Settings.h"

#include "Check.h"
#include "link/Values.h"

void zlt::fuzz::check(std::string_view input) {
    const Settings read = readSettings(std::string(input));
    const Settings again = readSettings(settingsFileText(read));
    for (const auto text : {&Settings::port, &Settings::baud, &Settings::deviceId}) {
        ZLT_CHECK(holdsNoLineEnd(read.*text));
        ZLT_CHECK(again.*text == read.*text);
    }
    const PortNumber number = portNumberFromText(read.port);
    ZLT_CHECK(number.value >= 0 && number.value <= portCount);
}
