// The settings file: whatever it holds, the start-up screen gets three lines of text, and saves
// them so that they come back the same.

#include "link/Settings.h"

#include "link/Values.h"
#include "tests/fuzz/Check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const zlt::Settings read = zlt::readSettings(std::string(zlt::fuzz::textOf(data, size)));
    for (const std::string* text : {&read.port, &read.baud, &read.deviceId})
        ZLT_CHECK(zlt::fuzz::holdsNoLineEnd(*text));

    const zlt::Settings again = zlt::readSettings(zlt::settingsFileText(read));
    ZLT_CHECK(again.port == read.port);
    ZLT_CHECK(again.baud == read.baud);
    ZLT_CHECK(again.deviceId == read.deviceId);

    const zlt::PortNumber number = zlt::portNumberFromText(read.port);
    ZLT_CHECK(number.value >= 0 && number.value <= zlt::portCount);
    return 0;
}
