#pragma once

#include <string_view>

namespace zlt {

/// What a reply can say of the wiring.
enum class LineFault {
    none,
    echo,       ///< the request itself came back
    zeroBytes,  ///< a zero byte in front, as a line that floats between messages gives
};

/// What this reply line to this request says, both as on the wire.
LineFault lineFaultIn(std::string_view request, std::string_view reply);

/// A sentence that says so and what to do, UTF-8; empty for none.
std::string_view lineFaultText(LineFault fault);

}  // namespace zlt
