#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QTest>

#include "support/FormDriver.h"
#include "support/World.h"
#include "terminal/CommandLine.h"
#include "terminal/TerminalFrame.h"
#include "widgets/Screen.h"

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

/// The frame on a screen that holds nothing else.
class TerminalFrameTest : public ::testing::Test, public World {
 protected:
    TerminalFrameTest() {
        link.connection = {{3}, "9600", "05"};
        link.PortReady = link.openPort();
        link.setCommOK(true);
        frame.connectTo(handlers, link);
        frame.showDevice("05");
        frame.show();
        QApplication::setActiveWindow(&frame);
    }
    std::string talk(const char* command) {
        control<CommandLine>(frame, "SendTerminalText").setText(QString::fromLatin1(command));
        press(frame, "SendTerminalText", Qt::Key_Enter);
        return textOf(frame, "ReceiveTerminalText");
    }
    void address(const char* text) {
        control<QComboBox>(frame, "DeviceIDComboTerminal").setEditText(QString::fromUtf8(text));
    }
    std::string recalled() {
        press(frame, "SendTerminalText", Qt::Key_F1);
        return textOf(frame, "SendTerminalText");
    }

    PanelLink link{services, nullptr, nullptr, [] {}};
    bool left = false;
    Handlers handlers{services, [this] { left = true; }};
    TerminalFrame frame;
};

TEST_F(TerminalFrameTest, ShowsTheLastReplyAsItCame) {
    const auto& box = control<QComboBox>(frame, "DeviceIDComboTerminal");
    EXPECT_EQ(box.currentText(), QStringLiteral("05"));
    EXPECT_EQ(box.itemText(0), QStringLiteral("00"));
    EXPECT_EQ(box.count(), 100);
    struct Row {
        const char *address, *command, *reply, *shown, *request;
        int emptyReads;
    };
    const Row table[] = {{"05", "PX", "#051500", "#051500", "@05PX", 0},
                         {"7", "ID", "a\xA0", "a\xC2\xA0", "@7ID", 0},
                         {"x1", "ID", "", "", "@x1ID", 0},
                         {"05", "EX", nullptr, "NO REPLY!", "@05EX", 501},
                         {"00", "ABORT", nullptr, "BROADCAST SENT!", "@00ABORT", 0}};
    for (const Row& row : table) {
        bus.answer = [&](const std::string&) {
            return row.reply ? std::optional<std::string>(row.reply) : std::nullopt;
        };
        bus.requests.clear();
        bus.emptyReads = 0;
        address(row.address);
        EXPECT_EQ(talk(row.command), row.shown);
        EXPECT_EQ(bus.requests, std::vector<std::string>{row.request});
        EXPECT_EQ(bus.emptyReads, row.emptyReads) << row.command;
        EXPECT_EQ(textOf(frame, "SendTerminalText"), "");
        EXPECT_TRUE(link.CommOK()) << "a silent device by hand says nothing of the panel's";
    }
    talk("ZSR");
    EXPECT_EQ(waits.slept, 1200ms);
}

TEST_F(TerminalFrameTest, RemembersOnlyWhatWasSent) {
    talk("PX");
    talk("");
    EXPECT_EQ(recalled(), "PX");
    gate.expectMessageWith("U+2212");
    address("\u22121");
    talk("EX");
    EXPECT_EQ(recalled(), "PX");
    link.setCommOK(false);
    address("05");
    bus.requests.clear();
    EXPECT_EQ(talk("EX"), "OK") << "the reply of before";
    EXPECT_EQ(textOf(frame, "SendTerminalText"), "EX");
    EXPECT_TRUE(bus.requests.empty());
    EXPECT_EQ(recalled(), "PX");
}

TEST_F(TerminalFrameTest, SendsByEnterAlone) {
    control<CommandLine>(frame, "SendTerminalText").setText(QStringLiteral("PX"));
    click(frame, "SendTerminal");
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Up, Qt::Key_Down})
        press(frame, "SendTerminalText", key);
    EXPECT_TRUE(bus.requests.empty());
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&control<CommandLine>(frame, "SendTerminalText"), &held);
    EXPECT_TRUE(bus.requests.empty()) << "of a key held down only the first press counts";
}

TEST_F(TerminalFrameTest, EndsTheProgramWithThePanelsPort) {
    bus.losesAtReadOf = "EX";
    bus.silent = true;
    gate.expectMessage("Communication Error! Input/output error");
    gate.expectMessage(std::string(portNotAvailable));
    talk("EX");
    EXPECT_TRUE(programEnd.ended());
    EXPECT_EQ(programEnd.exitCode(), 1);
    EXPECT_TRUE(left);
    EXPECT_FALSE(link.PortReady);
}

}  // namespace
}  // namespace zlt::test
