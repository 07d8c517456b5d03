#pragma once

#include "bench/World.h"
#include "link/PanelLink.h"
#include "support/SimulatedBus.h"

namespace zlt::bench {

/// The panel's world over a real port, with COM1 the simulator at full speed.
class SoakBed {
 public:
    SoakBed();

    /// Leads COM1 to the simulator's present device.
    void listPort();
    std::unique_ptr<Port> makePort() { return services.makePort(); }

    test::SimulatedBus simulator{{QStringLiteral("--unpaced")}};
    MessageList gate;
    LinkHandOver handOver{true, true, {World::port, "9600", "01"}, firmwareWithSecondThread};

 private:
    World m_world{gate};

 public:
    const Services& services = m_world.services;
};

}  // namespace zlt::bench
