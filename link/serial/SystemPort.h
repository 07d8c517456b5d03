#pragma once

#include <memory>

#include "link/Port.h"
#include "link/serial/PortDirectory.h"

namespace zlt {

/// A serial port of this machine, closed. `directory` says which device a port number stands for;
/// it outlives the port.
std::unique_ptr<Port> makeSystemPort(PortDirectory& directory);

}  // namespace zlt
