// The adapter pulled out under each screen, and what the operator can do next.

#include <filesystem>

#include "link/Flavour.h"
#include "support/StartUpWorld.h"

namespace zlt::test {
namespace {

class HangUpTest : public StartUpWorld {
 protected:
    bool lockFileStands() const {
        const auto name = std::filesystem::path(simulator.device()).filename().string();
        return std::filesystem::exists("/var/lock/LCK..pts_" + name);
    }
};

TEST_F(HangUpTest, OnAnotherScreenIsToldAtTheNextExchangeAndEndsNothing) {
    const auto upload = [this](QWidget& screen) {
        click(screen, "DownloadPar");
        gate.expectMessage("Communication port not open!");
        click(screen, "UploadPar");
    };
    const auto sendByHand = [](QWidget& screen) {
        for (int turn = 0; turn < 2; ++turn) {
            QTest::keyClicks(&control<QWidget>(screen, "SendText"), QStringLiteral("PX"));
            press(screen, "SendText", Qt::Key_Return);
        }
        const QString pad = control<QWidget>(screen, "Pad").property("plainText").toString();
        EXPECT_EQ(pad.count(QStringLiteral("Com Port Error")), 2);
    };
    struct Row {
        const char* button;
        const char* message;  ///< of the next exchange; null for none
        Work exchange;        ///< of a screen without poll
    };
    const Row table[] = {{"Setup", "Communication port not open!", upload},
                         {"ManualTerminal", nullptr, sendByHand},
                         {"Variable", "No Reply to Command: ", {}},
                         {"XThread", "Communication port not open!", {}}};
    for (const Row& row : table) {
        SCOPED_TRACE(row.button);
        connect([&](QWidget& panel) {
            clickAndWork(panel, row.button, [&](QWidget& screen) {
                QTest::qWait(20);
                if (row.message)
                    gate.expectMessageWith(row.message);
                simulator.say("hangup");
                // A pseudo-terminal's name may be another program's at once.
                listPort("/dev/no-such-port");
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
        simulator.say("plug");
        listPort(simulator.device());
        expectGoodConnection();
    }
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
}

}  // namespace
}  // namespace zlt::test
