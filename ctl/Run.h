#pragma once

#include <string>
#include <vector>

#include "ctl/CommandGate.h"
#include "ctl/Console.h"
#include "ctl/Output.h"
#include "link/Services.h"
#include "link/serial/PortDirectory.h"

namespace zlt::ctl {

/// What the program works with. All of it outlives the run.
struct World {
    const Services& services;  ///< its gate is `gate`
    CommandGate& gate;
    PortDirectory& directory;
    Console& console;
    Output& output;
};

/// Carries out what stands on the command line (UTF-8, without the program's name). Returns the
/// exit code; everything else has been told.
int run(const World& world, const std::vector<std::string>& texts);

}  // namespace zlt::ctl
