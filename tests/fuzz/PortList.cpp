// The port list: what is made of it are ports that the panel offers and paths that can be opened.

#include "Check.h"
#include "link/Settings.h"

void zlt::fuzz::check(std::string_view input) {
    const auto ports = parsePortList(input).ports;
    std::string written = "# as understood\r\n";
    for (const auto& [number, device] : ports) {
        ZLT_CHECK(number.value >= 1 && number.value <= portCount);
        ZLT_CHECK(device.find('/') != std::string::npos);
        ZLT_CHECK(holdsNoLineEnd(device));
        ZLT_CHECK(device.find_first_not_of(" \t") == 0);
        ZLT_CHECK(device.find_last_not_of(" \t") == device.size() - 1);
        written += " " + portText(number) + " =\t" + device + "\n\n";
    }
    ZLT_CHECK(parsePortList(written).ports == ports);
}
