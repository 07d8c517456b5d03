#pragma once

#include <gtest/gtest.h>

#include <QStringList>

#include "app/SelectComForm.h"
#include "support/FormDriver.h"
#include "support/RealWorld.h"
#include "support/SimulatedBus.h"

namespace zlt::test {

/// The whole program from its start-up screen on, over real ports, with COM1 the simulator.
class StartUpWorld : public ::testing::Test, public RealWorld {
 protected:
    using Work = std::function<void(QWidget& screen)>;

    StartUpWorld();

    /// Leads COM1 to this device from now on.
    void listPort(const std::string& device);
    /// Clicks a button that shows a screen over `form`, and works that screen once it stands.
    static void clickAndWork(QWidget& form, const char* button, const Work& work);
    /// Connects, and works the panel.
    void connect(const Work& work) { clickAndWork(startUp, "Command25", work); }
    /// Connects and closes the panel again, with all well.
    void expectGoodConnection();

    static bool wait(const std::function<bool()>& condition);
    /// Lets the event loop idle and fails when that keeps the processor busy.
    static void expectIdle();

    SimulatedBus simulator{{QStringLiteral("--unpaced")}};
    SelectComForm startUp{real, directory};
};

}  // namespace zlt::test
