#pragma once

#include <gtest/gtest.h>

#include <ctime>

#include "app/SelectComForm.h"
#include "support/FormDriver.h"
#include "support/RealWorld.h"
#include "support/SimulatedBus.h"

namespace zlt::test {

/// The whole program from its start-up screen on, over real ports, with COM1 the simulator.
class StartUpWorld : public ::testing::Test, public RealWorld {
 protected:
    using Work = std::function<void(QWidget& screen)>;

    /// `options` are the simulator's.
    explicit StartUpWorld(const QStringList& options = {QStringLiteral("--unpaced")})
        : simulator(options) {
        listPort(simulator.device());
        startUp.Form_Load();
        startUp.show();
    }
    /// Connects, and works the panel.
    void connect(const Work& work) { clickAndWork(startUp, "Command25", work); }

    /// Lets the event loop idle and fails when that keeps the processor busy.
    static void expectIdle() {
        QTest::qWait(50);
        const std::clock_t before = std::clock();
        QTest::qWait(300);
        EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 20) << "a lost port must not spin";
    }
    /// Connects and closes the panel again, with all well.
    void expectGoodConnection() {
        connect([](QWidget& panel) {
            EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Communication OK");
            EXPECT_EQ(textOf(panel, "Version"), "V322");
            click(panel, "Command2");
        });
        EXPECT_FALSE(programEnd.ended());
    }

    SimulatedBus simulator;
    SelectComForm startUp{real, directory};
};

}  // namespace zlt::test
