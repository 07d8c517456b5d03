#include "simulator/Parameters.h"

#include <algorithm>

namespace zlt::sim {
namespace {

using P = Parameters;
constexpr std::int64_t maximum = 2147483647;

constexpr std::array rows{
    ParameterRow{"HSPD", &P::speed, 0, 5000000, 0, false},
    ParameterRow{"ACC", &P::acceleration, 1, 60000, 0, false},
    ParameterRow{"CURR", &P::runCurrent, 100, 1500, 0, false},
    ParameterRow{"CURI", &P::idleCurrent, 100, 1500, 0, false},
    ParameterRow{"POL", &P::polarity, 0, 31, 0, true},
    ParameterRow{"DL", &P::limitsDisabled, 0, 1, 317, false},
    ParameterRow{"SLOAD", &P::bootFlags, 0, 3, 0, false},
    ParameterRow{"LCA", &P::limitCorrection, 0, maximum, 322, false},
    ParameterRow{"HCA", &P::homeCorrection, 0, maximum, 322, false},
    ParameterRow{"DOBOOT", &P::outputsAtBoot, 0, 7, 322, false},
    ParameterRow{"RT", &P::nameInReplies, 0, 1, 0, false},
    ParameterRow{"SCV", &P::sCurve, 0, 1, 0, true},
};

constexpr std::array<long, 5> bauds{9600, 19200, 38400, 57600, 115200};

}  // namespace

std::span<const ParameterRow> parameterRows() {
    return rows;
}

long baudOfCode(std::int64_t code) {
    return code >= 1 && code <= 5 ? bauds[static_cast<std::size_t>(code - 1)] : 0;
}

std::int64_t codeOfBaud(long baud) {
    const auto found = std::find(bauds.begin(), bauds.end(), baud);
    return found == bauds.end() ? 0 : found - bauds.begin() + 1;
}

}  // namespace zlt::sim
