#include "panel/AboutText.h"

namespace zlt {

const std::string_view aboutText =
    "GUI Version: V315\r"
    "Firmware Version: \r\n"
    "\r\n"
    "The following GUI features are not supported by this firmware:\r\n"
    "\r\n"
    " - Standalone multi-threading Capability.\r\n"
    " - HL+/- Commands.\r\n"
    " - Time Out Watchdog (TOC Command).\r\n";

}  // namespace zlt
