#include "link/LineFault.h"

#include "link/Exchange.h"

namespace zlt {

LineFault lineFaultIn(std::string_view request, std::string_view reply) {
    if (reply.starts_with('\0'))
        return LineFault::zeroBytes;
    if (request.ends_with(carriageReturn))
        request.remove_suffix(1);
    return reply == request ? LineFault::echo : LineFault::none;
}

std::string_view lineFaultText(LineFault fault) {
    switch (fault) {
        case LineFault::none:
            break;
        case LineFault::echo:
            return "The adapter echoes: the request itself came back as the reply.  Switch the "
                   "adapter's echo off.";
        case LineFault::zeroBytes:
            return "The reply began with a zero byte: the line floats between messages.  See to "
                   "its biasing and termination.";
    }
    return {};
}

}  // namespace zlt
