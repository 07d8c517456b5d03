#pragma once

#include <string_view>

namespace zlt {

/// The controllers' model, in titles and for the external tools.
inline constexpr std::string_view controllerModel = "ZLT-R-NX-42";

/// The text of the information box. The firmware's number is left open and the list is the
/// same for every firmware; the break after the first line is a lone carriage return.
inline constexpr std::string_view aboutText =
    "GUI Version: V315\r"
    "Firmware Version: \r\n"
    "\r\n"
    "The following GUI features are not supported by this firmware:\r\n"
    "\r\n"
    " - Standalone multi-threading Capability.\r\n"
    " - HL+/- Commands.\r\n"
    " - Time Out Watchdog (TOC Command).\r\n";

}  // namespace zlt
