#pragma once

#include <QTest>
#include <fstream>

#include "link/serial/SystemPort.h"
#include "platform_qt/ThisSystem.h"
#include "support/World.h"

namespace zlt::test {

/// A world whose ports and waits are real: the port list leads to pseudo-terminals.
struct RealWorld : World {
    std::unique_ptr<Waits> realWaits = makeWaits();
    Services real = servicesWith(*realWaits, [this] { return makeSystemPort(directory); });

    /// Leads COM1 to this device from now on.
    void listPort(const std::string& device) {
        std::ofstream(std::string(portListFileName)) << "COM1=" << device << "\n";
        directory.refresh();
    }
    /// Runs the event loop until the condition holds. False after ten seconds.
    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 10'000);
    }
};

}  // namespace zlt::test
