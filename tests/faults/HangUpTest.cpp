// The adapter pulled out under each screen, and what the operator can do next.

#include <QCheckBox>
#include <QTest>
#include <filesystem>

#include "faults/StartUpWorld.h"
#include "link/Flavour.h"

namespace zlt::test {
namespace {

class HangUpTest : public StartUpWorld {
 protected:
    /// An adapter's name goes with it; a pseudo-terminal's may be another program's at once.
    void pullOut() {
        simulator.say("hangup");
        listPort("/dev/no-such-port");
    }
    void plugUnderAnotherName() {
        simulator.say("plug");
        listPort(simulator.device());
    }
    bool lockFileStands() const {
        const auto name = std::filesystem::path(simulator.device()).filename().string();
        return std::filesystem::exists("/var/lock/LCK..pts_" + name);
    }
};

TEST_F(HangUpTest, OnAnotherScreenIsToldAtTheNextExchangeAndEndsNothing) {
    const auto sendByHand = [](QWidget& screen) {
        for (int turn = 0; turn < 2; ++turn) {
            QTest::keyClicks(&control<QWidget>(screen, "SendText"), QStringLiteral("PX"));
            press(screen, "SendText", Qt::Key_Return);
        }
        auto& pad = control<QWidget>(screen, "Pad");
        EXPECT_EQ(pad.property("plainText").toString().count(QStringLiteral("Com Port Error")), 2);
    };
    struct Row {
        const char* button;
        const char* message;  ///< of the next exchange; null for none
        Work exchange;
    };
    const Row table[] = {
        {"Setup", "Communication port not open!",
         [this](QWidget& screen) {
             click(screen, "DownloadPar");
             gate.expectMessage("Communication port not open!");
             click(screen, "UploadPar");
         }},
        {"ManualTerminal", nullptr, sendByHand},
        {"Variable", "No Reply to Command: ", {}},
        {"XThread", "Communication port not open!", {}},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.button);
        connect([&](QWidget& panel) {
            clickAndWork(panel, row.button, [&](QWidget& screen) {
                QTest::qWait(20);
                if (row.message)
                    gate.expectMessageWith(row.message);
                pullOut();
                expectIdle();
                if (row.exchange)
                    row.exchange(screen);
                EXPECT_TRUE(wait([&] { return gate.satisfied(); }));
                expectIdle();
                gate.expectMessage(std::string(portNotAvailable));
                screen.close();
            });
            EXPECT_TRUE(gate.satisfied()) << "the port does not come back to the panel";
            EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Invalid Port");
            expectIdle();
            click(panel, "Command2");
        });
        plugUnderAnotherName();
        expectGoodConnection();
    }
}

TEST_F(HangUpTest, BeforeConnectingIsMendedByPluggingIn) {
    pullOut();
    for (int turn = 0; turn < 2; ++turn) {
        gate.expectMessage(std::string(portNotAvailable));
        connect([](QWidget& panel) { panel.close(); });
    }
    plugUnderAnotherName();
    expectGoodConnection();
}

TEST_F(HangUpTest, ClosingDuringTrafficReleasesThePort) {
    for (int milliseconds = 0; milliseconds < 40; milliseconds += 10) {
        connect([&](QWidget& panel) {
            EXPECT_TRUE(lockFileStands());
            QTest::qWait(milliseconds);
            panel.close();
        });
        EXPECT_FALSE(lockFileStands());
    }
    connect([&](QWidget& panel) {
        QTimer::singleShot(20, &panel, [&panel] { panel.close(); });
        wait([&] { return !panel.isVisible(); });
    });
    EXPECT_FALSE(lockFileStands());
    startUp.close();
    EXPECT_TRUE(programEnd.ended());
    EXPECT_EQ(programEnd.exitCode(), 0);
}

}  // namespace
}  // namespace zlt::test
