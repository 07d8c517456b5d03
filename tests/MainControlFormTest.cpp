#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include "link/Flavour.h"
#include "panel/MainControlForm.h"
#include "support/FormDriver.h"
#include "support/World.h"
#include "widgets/Lamp.h"

namespace zlt::test {
namespace {

using Commands = std::vector<std::string>;

const Commands loadCommands{"DN", "VER", "ID", "DN", "HSPD", "ACC"};
const Commands shortTick{"CUR", "PX", "EX", "MST", "EO"};
const Commands longTick{"CUR", "PX", "EX", "MST", "EO", "MM", "DO", "SPC", "SASTAT"};
const QColor red(255, 0, 0), green(0, 255, 0), grey(128, 128, 128);

class MainControlFormTest : public ::testing::Test, public World {
 protected:
    MainControlFormTest() { answerAsController(); }

    /// Loads and shows the panel, as connecting does.
    void load(const std::string& version = "V322") {
        bus.replies["VER"] = version;
        open();
        bus.takeCommands();
    }
    void open() {
        form.Form_Load({{3}, "9600", "01"});
        form.show();
    }
    Commands tickCommands() {
        tick(form, "Timer1");
        return bus.takeCommands();
    }
    bool polls() { return control<QTimer>(form, "Timer1").isActive(); }
    bool lit(const char* lamp) { return control<Lamp>(form, lamp).lit(); }

    void expectLost(const char* state, const QColor& colour) {
        EXPECT_EQ(textOf(form, "ComStatusDisplay"), state);
        EXPECT_EQ(backgroundOf(form, "ComStatusDisplay"), colour);
        EXPECT_EQ(textOf(form, "ID"), "???");
        EXPECT_EQ(textOf(form, "Version"), "???");
        EXPECT_TRUE(control<QRadioButton>(form, "SyncEqual").isChecked());
        EXPECT_EQ(textOf(form, "SyncPos"), "0");
    }
    void disturbSync() {
        control<QRadioButton>(form, "SyncLessThan").setChecked(true);
        control<QLineEdit>(form, "SyncPos").setText(QStringLiteral("77"));
    }

    MainControlForm form{services, nullptr};
};

TEST_F(MainControlFormTest, LoadsReadsOnceAndPolls) {
    bus.replies["DN"] = "#01ZLD07abcdef";
    open();
    EXPECT_EQ(bus.openings, Commands{"3 9600,N,8,1"});
    EXPECT_EQ(bus.takeCommands(), loadCommands);
    EXPECT_EQ(textOf(form, "ComStatusDisplay"), "Communication OK");
    EXPECT_EQ(backgroundOf(form, "ComStatusDisplay"), green);
    EXPECT_EQ(textOf(form, "BaudText"), "9600");
    EXPECT_EQ(textOf(form, "Version"), "V322");
    EXPECT_EQ(textOf(form, "ID"), "ZLT-R-NX-42");
    EXPECT_EQ(textOf(form, "SelectedDeviceID"), "07abc");
    EXPECT_EQ(textOf(form, "SetSpeed"), "5000");
    EXPECT_EQ(textOf(form, "Accel"), "250");
    EXPECT_EQ(tickCommands(), longTick);
    EXPECT_EQ(textOf(form, "Current"), "800");
    EXPECT_EQ(textOf(form, "Pos"), "-12");
    EXPECT_EQ(textOf(form, "EncPos"), "34");
    EXPECT_EQ(textOf(form, "ProgIndex"), "7");
}

TEST_F(MainControlFormTest, GatesThePollAndTheButtonsByFirmware) {
    struct Row {
        const char* version;
        const Commands& tick;
        bool homing;
    };
    const Row table[] = {{"V316", shortTick, false},
                         {"V317", longTick, false},
                         {"V321", longTick, false},
                         {"V322", longTick, true},
                         {"V400x", longTick, true}};
    for (const Row& row : table) {
        MainControlForm panel(services, nullptr);
        bus.replies["VER"] = row.version;
        panel.Form_Load({{3}, "9600", "01"});
        bus.takeCommands();
        tick(panel, "Timer1");
        EXPECT_EQ(bus.takeCommands(), row.tick) << row.version;
        for (const char* name : {"HLHOMEMINUS", "HLHOMEPLUS", "LHOMEMINUS", "LHOMEPLUS"})
            EXPECT_EQ(control<QWidget>(panel, name).isEnabled(), row.homing) << row.version;
    }
}

TEST_F(MainControlFormTest, ShowsTheStatusWord) {
    load();
    struct Row {
        const char *reply, *text;
        bool minus, plus, home;
    };
    const Row table[] = {
        {"0", "IDLE", false, false, false},      {"1", "MOVING", false, false, false},
        {"3", "ACCEL", false, false, false},     {"7", "DECEL", false, false, false},
        {"65", "-LIM ERR", false, false, false}, {"192", "+LIM ERR", false, false, false},
        {"8", "IDLE", true, false, false},       {"16", "IDLE", false, true, false},
        {"33", "MOVING", false, false, true},    {"56", "IDLE", true, true, true},
        {"256", "IDLE", false, false, false},    {"-1", "+LIM ERR", true, true, true}};
    for (const Row& row : table) {
        bus.replies["MST"] = row.reply;
        tick(form, "Timer1");
        EXPECT_EQ(textOf(form, "Stat"), row.text) << row.reply;
        EXPECT_EQ(lit("NegLim"), row.minus) << row.reply;
        EXPECT_EQ(lit("PosLim"), row.plus) << row.reply;
        EXPECT_EQ(lit("Home"), row.home) << row.reply;
    }
}

TEST_F(MainControlFormTest, ShowsEnableModeOutputAndProgram) {
    load();
    auto& enabled = control<QCheckBox>(form, "EnableStat");
    const auto show = [&](const char* command, const char* reply) {
        bus.replies[command] = reply;
        tick(form, "Timer1");
    };
    for (const auto& [reply, on] : {std::pair{"2", false}, {"1", true}, {"0", false}}) {
        show("EO", reply);
        EXPECT_EQ(enabled.isChecked(), on) << reply;
        show("DO", reply);
        EXPECT_EQ(lit("InPosDO"), on) << reply;
    }
    for (const auto& [reply, text] : {std::pair{"0", "ABS"}, {"1", "INC"}, {"-3", "INC"}}) {
        show("MM", reply);
        EXPECT_EQ(textOf(form, "MoveMode"), text);
    }
    show("SPC", " 012 ");
    EXPECT_EQ(textOf(form, "ProgIndex"), "12");
    for (const auto& [reply, text] : {std::pair{"1", "Running"},
                                      {"3", "Running"},
                                      {"2", "Paused"},
                                      {"9", "Paused"},
                                      {"4", "Errored"},
                                      {"0", "Idle"}}) {
        show("SASTAT", reply);
        EXPECT_EQ(textOf(form, "ProgStatus"), text) << reply;
    }
}

TEST_F(MainControlFormTest, KeepsOffAMarkThatTheOperatorHoldsDown) {
    load();
    auto& enabled = control<QCheckBox>(form, "EnableStat");
    enabled.setChecked(false);
    const QPoint mark(8, enabled.height() / 2);
    QTest::mousePress(&enabled, Qt::LeftButton, {}, mark);
    tick(form, "Timer1");
    EXPECT_FALSE(enabled.isChecked());
    QTest::mouseMove(&enabled, QPoint(-50, -50));
    enabled.setDown(false);  // as while the pointer is off the box with its button held
    tick(form, "Timer1");
    EXPECT_FALSE(enabled.isChecked());
    QTest::mouseRelease(&enabled, Qt::LeftButton, {}, QPoint(-50, -50));
    tick(form, "Timer1");
    EXPECT_TRUE(enabled.isChecked());
}

TEST_F(MainControlFormTest, FailsTheLoadWhenThePortDoesNotOpen) {
    bus.opens = false;
    gate.expectMessage(std::string(portNotAvailable));
    open();
    expectLost("Invalid Port", grey);
    EXPECT_EQ(textOf(form, "SelectedDeviceID"), "01");
    EXPECT_FALSE(polls());
    EXPECT_TRUE(bus.requests.empty());
    EXPECT_FALSE(programEnd.ended());
    click(form, "Command2");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(MainControlFormTest, FailsTheLoadOfADeviceThatIsNotOurs) {
    for (const char* name : {"ABC01", "", "XZLD01", "ZL"}) {
        MainControlForm panel(services, nullptr);
        bus.replies["DN"] = name;
        gate.expectMessage("No Communication with device!");
        gate.expectMessage(std::string(portNotAvailable));
        panel.Form_Load({{3}, "9600", "09"});
        EXPECT_EQ(bus.takeCommands(), Commands{"DN"});
        EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Invalid Port");
        EXPECT_EQ(textOf(panel, "SelectedDeviceID"), "09");
        EXPECT_FALSE(control<QTimer>(panel, "Timer1").isActive());
    }
}

TEST_F(MainControlFormTest, FailsTheLoadOfASilentDevice) {
    bus.silent = true;
    gate.expectMessage("No Communication with device!",
                       [this] { expectLost("No Communication", red); });
    gate.expectMessage(std::string(portNotAvailable));
    open();
    EXPECT_EQ(bus.takeCommands(), Commands{"DN"});
    expectLost("Invalid Port", grey);
    EXPECT_FALSE(polls());
}

TEST_F(MainControlFormTest, EndsTheProgramWhenThePortIsLostDuringTheLoad) {
    bus.losesAtWriteOf = "HSPD";
    gate.expectMessageWith("Communication Error!");
    gate.expectMessage(std::string(portNotAvailable));
    EXPECT_THROW(form.Form_Load({{3}, "9600", "01"}), ProgramEnd::Unwind);
    EXPECT_EQ(programEnd.exitCode(), 1);
}

TEST_F(MainControlFormTest, FailsTheLoadAtAnyTimeOut) {
    for (std::size_t silentAt = 1; silentAt < loadCommands.size(); ++silentAt) {
        MainControlForm panel(services, nullptr);
        std::size_t asked = 0;
        bus.answer = [&](const std::string& request) -> std::optional<std::string> {
            if (asked++ == silentAt)
                return std::nullopt;
            return bus.replies[request.substr(3)];
        };
        gate.expectMessage(std::string(portNotAvailable));
        panel.Form_Load({{3}, "9600", "01"});
        EXPECT_EQ(bus.takeCommands(), loadCommands);
        EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Invalid Port");
        EXPECT_EQ(textOf(panel, "Version"), "???");
        EXPECT_FALSE(control<QTimer>(panel, "Timer1").isActive());
    }
}

TEST_F(MainControlFormTest, RunsASilentTickToItsEndAndThenProbes) {
    load();
    tickCommands();
    disturbSync();
    bus.silent = true;
    EXPECT_EQ(tickCommands(), longTick);
    expectLost("No Communication", red);
    EXPECT_EQ(textOf(form, "Pos"), "0");
    disturbSync();
    EXPECT_EQ(tickCommands(), Commands{"DN"});
    expectLost("No Communication", red);

    bus.silent = false;
    bus.replies["VER"] = "V316";
    EXPECT_EQ(tickCommands(), (Commands{"DN", "VER", "ID"}));
    EXPECT_EQ(textOf(form, "ComStatusDisplay"), "Communication OK");
    EXPECT_EQ(backgroundOf(form, "ComStatusDisplay"), green);
    EXPECT_EQ(tickCommands(), shortTick);
    EXPECT_TRUE(control<QWidget>(form, "HLHOMEPLUS").isEnabled()) << "as loaded";
}

TEST_F(MainControlFormTest, ProbesOnWhileTheAnswerIsNoController) {
    load();
    bus.silent = true;
    tickCommands();
    bus.silent = false;
    bus.replies["DN"] = "ABC01";
    bus.replies["ID"] = "late";
    disturbSync();
    EXPECT_EQ(tickCommands(), Commands{"DN"});
    EXPECT_EQ(textOf(form, "ComStatusDisplay"), "No Communication");
    EXPECT_EQ(textOf(form, "ID"), "???");
    EXPECT_EQ(textOf(form, "SyncPos"), "77") << "an answer resets nothing";

    bus.replies["DN"] = "ZLD01";
    for (const char* silentCommand : {"VER", "ID"}) {
        bus.answer = [&](const std::string& request) -> std::optional<std::string> {
            if (request.substr(3) == silentCommand)
                return std::nullopt;
            return bus.replies[request.substr(3)];
        };
        EXPECT_EQ(tickCommands(), (Commands{"DN", "VER", "ID"}));
        EXPECT_EQ(textOf(form, "ComStatusDisplay"), "No Communication");
    }
    bus.answer = nullptr;
    tickCommands();
    EXPECT_EQ(tickCommands(), longTick) << "the firmware number was kept";
}

TEST_F(MainControlFormTest, EndsTheProgramWhenTheProbeFindsNoFirmwareNumber) {
    load();
    bus.silent = true;
    tickCommands();
    bus.silent = false;
    bus.replies["VER"] = "new";
    gate.expectMessage("The reply to the command VER is not a firmware version: \"new\"");
    EXPECT_EQ(tickCommands(), (Commands{"DN", "VER", "ID"}));
    EXPECT_EQ(programEnd.exitCode(), 1);
}

TEST_F(MainControlFormTest, DimsWhatIsNotLive) {
    load();
    const auto textColour = [&] {
        return control<QWidget>(form, "Pos").palette().color(QPalette::Text);
    };
    tickCommands();
    const QColor live = textColour();
    bus.silent = true;
    tickCommands();
    EXPECT_NE(textColour(), live);
    bus.silent = false;
    tickCommands();
    EXPECT_EQ(textColour(), live);
}

TEST_F(MainControlFormTest, EndsTheProgramOnAReplyThatIsNoNumber) {
    for (const char* command : {"MST", "EO", "MM", "DO", "SPC", "SASTAT"}) {
        World world;
        world.answerAsController();
        MainControlForm panel(world.services, nullptr);
        panel.Form_Load({{3}, "9600", "01"});
        panel.show();
        world.bus.replies[command] = "12abc";
        world.gate.expectMessage("The reply to the command " + std::string(command) +
                                 " is not a number: \"12abc\"");
        tick(panel, "Timer1");
        EXPECT_TRUE(world.programEnd.ended());
        EXPECT_EQ(world.programEnd.exitCode(), 1);
        EXPECT_EQ(world.bus.portsOpen, 0);
        EXPECT_EQ(world.bus.takeCommands().back(), command);
        tick(panel, "Timer1");
        EXPECT_TRUE(world.bus.requests.empty());
    }
}

TEST_F(MainControlFormTest, EndsTheProgramWhenThePortIsLost) {
    load();
    bus.losesAtWriteOf = "EX";
    const auto nothingMore = [this] {
        tick(form, "Timer1");
        EXPECT_EQ(bus.takeCommands(), Commands{});
    };
    gate.expectMessage("Communication Error! Input/output error", [&] {
        bus.takeCommands();
        nothingMore();
        EXPECT_EQ(textOf(form, "ComStatusDisplay"), "Communication OK");
    });
    gate.expectMessage(std::string(portNotAvailable), [&] {
        nothingMore();
        expectLost("Invalid Port", grey);
        EXPECT_EQ(textOf(form, "SelectedDeviceID"), "01");
    });
    tick(form, "Timer1");
    nothingMore();
    EXPECT_EQ(programEnd.exitCode(), 1);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(MainControlFormTest, DemoStepsBehindTheReadsOfEachTick) {
    load("V316");
    click(form, "Command5");
    Commands last;
    for (int ticks = 0; ticks < 4; ++ticks) {
        Commands sent = tickCommands();
        EXPECT_EQ(sent.size(), shortTick.size() + 1);
        last.push_back(sent.back());
    }
    EXPECT_EQ(last, (Commands{"X8000", "X0", "X8000", "X0"}));
    EXPECT_TRUE(control<QAbstractButton>(form, "Command5").isChecked());
    click(form, "Command5");
    EXPECT_EQ(tickCommands(), shortTick);
    EXPECT_FALSE(control<QAbstractButton>(form, "Command5").isChecked());
}

TEST_F(MainControlFormTest, SwitchesToAnotherDevice) {
    load();
    choose(form, "SelectedDeviceID", "01");
    EXPECT_EQ(bus.takeCommands(), Commands{}) << "the present one";

    bus.replies["DO"] = "1";
    bus.replies["VER"] = "V316";
    click(form, "Command5");
    tickCommands();
    choose(form, "SelectedDeviceID", "07");
    EXPECT_EQ(bus.requests, (Commands{"@07ID", "@07VER", "@07ID"}));
    for (const char* name : {"MoveMode", "ProgIndex", "ProgStatus"})
        EXPECT_EQ(textOf(form, name), "") << "the other device's";
    EXPECT_FALSE(lit("InPosDO")) << "the other device's";
    EXPECT_EQ(textOf(form, "Version"), "V316");
    bus.takeCommands();
    EXPECT_EQ(tickCommands(), shortTick) << "the demo moves no axis that was only selected";
    EXPECT_TRUE(control<QWidget>(form, "HLHOMEPLUS").isEnabled()) << "as loaded";

    bus.replies["VER"] = "???";
    choose(form, "SelectedDeviceID", "09");
    EXPECT_EQ(bus.takeCommands(), (Commands{"ID", "VER", "ID"}));
    EXPECT_EQ(tickCommands(), shortTick) << "an unknown version keeps the number";

    bus.replies["VER"] = "V316";
    bus.replies["ID"] = "ZLD08";
    disturbSync();
    gate.expectMessage("No Communication with the device at address 08");
    choose(form, "SelectedDeviceID", "08");
    EXPECT_EQ(bus.takeCommands(), Commands{"ID"});
    expectLost("No Communication", red);
    EXPECT_EQ(textOf(form, "SelectedDeviceID"), "08");
    EXPECT_EQ(tickCommands()[0], "DN") << "the probe goes on at the new address";
}

TEST_F(MainControlFormTest, EndsTheProgramOnASwitchToASilentDevice) {
    load();
    bus.silent = true;
    gate.expectMessageWith("VER");
    choose(form, "SelectedDeviceID", "07");
    EXPECT_EQ(bus.takeCommands(), (Commands{"ID", "VER"}));
    EXPECT_EQ(programEnd.exitCode(), 1);
}

TEST_F(MainControlFormTest, ActsOnlyOnTheOperatorsChoiceOfADevice) {
    bus.replies["DN"] = "ZLD07";  // though 01 was asked
    load();
    auto& box = control<QComboBox>(form, "SelectedDeviceID");
    box.setFocus();
    control<QWidget>(form, "SetSpeed").setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown}) {
        press(form, "SelectedDeviceID", key);
        box.hidePopup();
    }
    turnWheel(box);
    EXPECT_EQ(bus.takeCommands(), Commands{});
    EXPECT_EQ(textOf(form, "SelectedDeviceID"), "07");

    QTest::mouseClick(box.lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(box.view()->isVisible()) << "a click on the text opens the list";
    box.hidePopup();
}

TEST_F(MainControlFormTest, SwitchesNothingWithoutAPort) {
    bus.opens = false;
    gate.expectMessage(std::string(portNotAvailable));
    open();
    choose(form, "SelectedDeviceID", "05");
    EXPECT_EQ(bus.takeCommands(), Commands{});
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(MainControlFormTest, TakesNoOrdersFromEnterAndEscape) {
    load();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        for (const char* name : {"SetSpeed", "Accel", "SyncPos", "Pos", "SelectedDeviceID"})
            press(form, name, key);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(bus.takeCommands(), Commands{});
}

TEST_F(MainControlFormTest, ShowsAboutAndHelp) {
    load();
    gate.expectMessage(
        "GUI Version: V315\rFirmware Version: \r\n\r\nThe following GUI features are not "
        "supported by this firmware:\r\n\r\n - Standalone multi-threading Capability.\r\n - HL+/- "
        "Commands.\r\n - Time Out Watchdog (TOC Command).\r\n",
        [this] { EXPECT_EQ(tickCommands(), Commands{}) << "the poll waits for the message"; });
    click(form, "About");
    click(form, "Help");
    EXPECT_EQ(help.opened, "ZLT42R-485.HLP");
    EXPECT_EQ(tickCommands(), longTick);
}

TEST_F(MainControlFormTest, ClosesItsPortWithItself) {
    load();
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_FALSE(polls());
}

}  // namespace
}  // namespace zlt::test
