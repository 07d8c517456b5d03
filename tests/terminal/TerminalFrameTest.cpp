#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>

#include "support/World.h"
#include "terminal/Entering.h"
#include "terminal/TerminalFrame.h"

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
    std::string talk(const char* address, const char* command) {
        device.setEditText(QString::fromUtf8(address));
        enter(frame, "SendTerminalText", command);
        return textOf(frame, "ReceiveTerminalText");
    }
    std::string shownAfter(Qt::Key key) { return test::shownAfter(frame, "SendTerminalText", key); }

    PanelLink link{services, nullptr, nullptr, [] {}};
    bool left = false;
    Handlers handlers{services, [this] { left = true; }};
    TerminalFrame frame;
    QComboBox& device = control<QComboBox>(frame, "DeviceIDComboTerminal");
};

TEST_F(TerminalFrameTest, ShowsTheLastReplyAsItCame) {
    EXPECT_EQ(device.currentText(), QStringLiteral("05"));
    EXPECT_EQ(device.itemText(0), QStringLiteral("00"));
    EXPECT_EQ(device.count(), 100);
    const auto enters = [this](const char* address, const char* command) {
        const std::string shown = talk(address, command);
        EXPECT_EQ(textOf(frame, "SendTerminalText"), "");
        EXPECT_TRUE(link.CommOK()) << "a silent device by hand says nothing of the panel's";
        return shown;
    };
    expectTalks(bus,
                {{"05", "PX", "#051500", "#051500", "@05PX"},
                 {"7", "ID", "a\xA0", "a\xC2\xA0", "@7ID"},
                 {"x1", "ID", "", "", "@x1ID"},
                 {"05", "EX", std::nullopt, "NO REPLY!", "@05EX", 501},
                 {"00", "ABORT", std::nullopt, "BROADCAST SENT!", "@00ABORT"}},
                enters);
    talk("05", "ZSR");
    EXPECT_EQ(waits.slept, 1200ms);
}

TEST_F(TerminalFrameTest, SendsByEnterAloneAndRemembersOnlyWhatWasSent) {
    talk("05", "PX");
    talk("05", "");
    EXPECT_EQ(shownAfter(Qt::Key_F1), "PX");
    bus.requests.clear();
    click(frame, "SendTerminal");
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Up, Qt::Key_Down})
        EXPECT_EQ(shownAfter(key), "PX");
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&control<QWidget>(frame, "SendTerminalText"), &held);
    EXPECT_TRUE(bus.requests.empty()) << "of a key held down only the first press counts";

    gate.expectMessageWith("U+2212");
    talk("\u22121", "EX");
    EXPECT_EQ(shownAfter(Qt::Key_F1), "PX");
    link.setCommOK(false);
    EXPECT_EQ(talk("05", "EX"), "OK") << "the reply of before";
    EXPECT_EQ(textOf(frame, "SendTerminalText"), "EX");
    EXPECT_TRUE(bus.requests.empty());
}

TEST_F(TerminalFrameTest, EndsTheProgramWithThePanelsPort) {
    bus.losesAtReadOf = "EX";
    bus.silent = true;
    gate.expectMessage("Communication Error! Input/output error");
    gate.expectMessage(std::string(portNotAvailable));
    talk("05", "EX");
    EXPECT_TRUE(programEnd.ended());
    EXPECT_TRUE(left);
}

}  // namespace
}  // namespace zlt::test
