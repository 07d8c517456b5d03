#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/Controller.h"

namespace zlt::sim {

/// One port of the simulated bus, as asked for on the command line.
struct PortOptions {
    std::string name;  ///< "COM1"
    std::string link;  ///< empty: none
    std::vector<ControllerSetup> controllers;
    std::vector<std::string> faults;  ///< console lines without the port's name
    bool paced = true;
};

/// The whole command line.
struct Options {
    std::vector<PortOptions> ports;
    std::string logFile;  ///< empty: none
    bool untilInputCloses = false;
    bool help = false;
};

/// Reads the command line without the program's name. Throws std::invalid_argument with a text
/// for the user.
Options parseOptions(const std::vector<std::string>& arguments);

/// "id=7,firmware=322,baud=9600" and so on. Throws std::invalid_argument.
ControllerSetup parseController(std::string_view text);

/// What "--help" prints: every option, console line and convention.
std::string_view helpText();

}  // namespace zlt::sim
