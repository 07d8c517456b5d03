#include "bench/LiveController.h"

#include "bench/Wire.h"
#include "link/Exchange.h"

namespace zlt::bench {
namespace {

/// Moving, on the home switch.
constexpr int movingAtHome = 0x21;

}  // namespace

std::string LiveController::answer(std::string_view line) {
    const std::size_t header = 1 + deviceId.size();
    if (line.size() <= header)
        return {};
    const std::string_view asked = line.substr(header, line.size() - header - 1);
    if (asked == "CUR")
        ++m_passes;
    const std::string text = value(asked);
    return text.empty() ? text : "#" + std::string(deviceId) + text + carriageReturn;
}

std::string LiveController::value(std::string_view asked) const {
    const long pass = m_passes;
    const bool odd = pass % 2 != 0;
    if (asked == "CUR")
        return std::to_string(800 + pass % 200);
    if (asked == "PX")
        return std::to_string(12000 + 37 * (pass % 1000));
    if (asked == "EX")
        return std::to_string(11998 + 37 * (pass % 1000));
    if (asked == "MST")
        return std::to_string(odd ? movingAtHome : 0);
    if (asked == "SPC")
        return std::to_string(pass % 100);
    if (asked == "EO" || asked == "MM" || asked == "DO" || asked == "SASTAT")
        return odd ? "1" : "0";
    if (asked == "DN")
        return std::string(deviceNamePrefix) + std::string(deviceId);
    if (asked == "VER")
        return "V322";
    if (asked == "ID")
        return "ZLT-R-NX-42";
    if (asked == "HSPD" || asked == "ACC")
        return "1000";
    return {};
}

}  // namespace zlt::bench
