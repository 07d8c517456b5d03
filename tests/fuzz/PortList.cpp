// The port list: what is made of it are ports that the panel offers and paths that can be opened.

#include "link/PortList.h"

#include "tests/fuzz/Check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto ports = zlt::parsePortList(zlt::fuzz::textOf(data, size));
    std::string written = "# as understood\r\n";
    for (const auto& [number, device] : ports) {
        ZLT_CHECK(number.value >= 1 && number.value <= zlt::portCount);
        ZLT_CHECK(device.find('/') != std::string::npos);
        ZLT_CHECK(zlt::fuzz::holdsNoLineEnd(device));
        ZLT_CHECK(device.find_first_not_of(" \t") == 0);
        ZLT_CHECK(device.find_last_not_of(" \t") == device.size() - 1);
        written += " " + zlt::portText(number) + " =\t" + device + "\n\n";
    }
    ZLT_CHECK(zlt::parsePortList(written) == ports);
    return 0;
}
