// The panel on Windows, from the start-up screen on, over COM ports that lead to the simulator.

#include <QComboBox>

#include "link/Flavour.h"
#include "support/StartUpWorld.h"

namespace zlt::test {
namespace {

class WindowsPanelTest : public StartUpWorld {
 protected:
    static bool waitFor(QWidget& screen, const char* name, const std::string& text) {
        const bool came = wait([&] { return textOf(screen, name) == text; });
        EXPECT_TRUE(came) << name << " shows " << textOf(screen, name);
        return came;
    }
};

TEST_F(WindowsPanelTest, ConnectsPollsAndJogsByEitherOfTwoNumbers) {
    for (const char* port : {"COM1", "COM12"}) {
        SCOPED_TRACE(port);
        choose(startUp, "combo", port);
        EXPECT_TRUE(wait([&] { return shownOn(startUp, "portTimer") == "on"; })) << "once painted";
        tick(startUp, "portTimer");
        EXPECT_EQ(textOf(startUp, "portDevice"),
                  std::string(port) + " is a serial port of this computer");
        EXPECT_EQ(textOf(startUp, "portProblem"), "");
        connect([&](QWidget& panel) {
            EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Communication OK");
            EXPECT_EQ(textOf(panel, "Version"), "V322");
            const std::string before = textOf(panel, "Pos");
            click(panel, "JOGP");
            waitFor(panel, "Stat", "MOVING");
            EXPECT_TRUE(wait([&] { return textOf(panel, "Pos") != before; }));
            click(panel, "ISTOP");
            waitFor(panel, "Stat", "IDLE");
            click(panel, "Command2");
        });
    }
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(WindowsPanelTest, ReadsAndWritesParameters) {
    connect([&](QWidget& panel) {
        clickAndWork(panel, "Setup", [&](QWidget& setup) {
            click(setup, "UploadPar");
            EXPECT_EQ(textOf(setup, "RunCurrentSelect"), "1000");
            control<QComboBox>(setup, "RunCurrentSelect").setEditText(QStringLiteral("900"));
            gate.expectMessage("Download Done!");
            click(setup, "DownloadPar");
            click(setup, "Close");
        });
        clickAndWork(panel, "Setup", [&](QWidget& setup) {
            click(setup, "UploadPar");
            EXPECT_EQ(textOf(setup, "RunCurrentSelect"), "900");
            click(setup, "Close");
        });
        click(panel, "Command2");
    });
}

TEST_F(WindowsPanelTest, SeesSilenceAndFindsBack) {
    connect([&](QWidget& panel) {
        simulator.say("silent");
        waitFor(panel, "ComStatusDisplay", "No Communication");
        simulator.say("speak");
        waitFor(panel, "ComStatusDisplay", "Communication OK");
        click(panel, "Command2");
    });
}

TEST_F(WindowsPanelTest, EndsOnAHangUpWhilePolling) {
    connect([&](QWidget& panel) {
        gate.expectMessageWith("Communication Error! ");
        gate.expectMessage(std::string(portNotAvailable));
        simulator.say("hangup");
        EXPECT_TRUE(wait([&] { return !panel.isVisible(); }));
    });
    EXPECT_EQ(programEnd.exitCode(), 1);
    EXPECT_FALSE(startUp.isVisible());
}

TEST_F(WindowsPanelTest, TalksByHand) {
    connect([&](QWidget& panel) {
        clickAndWork(panel, "ManualTerminal", [&](QWidget& terminal) {
            QTest::keyClicks(&control<QWidget>(terminal, "SendText"), QStringLiteral("ID"));
            press(terminal, "SendText", Qt::Key_Return);
            const QString pad = control<QWidget>(terminal, "Pad").property("plainText").toString();
            EXPECT_TRUE(pad.contains(QStringLiteral("ZLT-R-NX-42"))) << pad.toStdString();
            click(terminal, "Close");
        });
        EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Communication OK");
        click(panel, "Command2");
    });
}

}  // namespace
}  // namespace zlt::test
