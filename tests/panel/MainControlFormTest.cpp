#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QTest>

#include "link/Flavour.h"
#include "support/PanelWorld.h"

namespace zlt::test {
namespace {

const std::string loadCommands = "DN|VER|ID|DN|HSPD|ACC";
const std::string shortTick = "CUR|PX|EX|MST|EO";
const std::string longTick = shortTick + "|MM|DO|SPC|SASTAT";
const QColor red(255, 0, 0), green(0, 255, 0), grey(128, 128, 128);

struct Panel : PanelWorld {
    bool enabled(const char* name) { return control<QWidget>(form, name).isEnabled(); }

    void expectState(const char* words, const QColor& colour) {
        EXPECT_EQ(shown("ComStatusDisplay"), words);
        EXPECT_EQ(backgroundOf(form, "ComStatusDisplay"), colour);
    }
    void expectLost(const char* words, const QColor& colour) {
        expectState(words, colour);
        EXPECT_EQ(shown("ID") + shown("Version"), "??????");
        EXPECT_EQ(shown("SyncEqual"), "on");
        EXPECT_EQ(shown("SyncPos"), "0");
    }
    void disturbSync() {
        control<QAbstractButton>(form, "SyncLessThan").setChecked(true);
        control<QLineEdit>(form, "SyncPos").setText(QStringLiteral("77"));
    }
};

class MainControlFormTest : public ::testing::Test, public Panel {};

TEST_F(MainControlFormTest, LoadsReadsOnceAndPolls) {
    bus.replies["DN"] = "#01ZLD07abcdef";
    open();
    EXPECT_EQ(bus.openings, std::vector<std::string>{"3 9600"});
    EXPECT_EQ(sent(), loadCommands);
    expectState("Communication OK", green);
    EXPECT_EQ(sentByTick(), longTick);
    const std::pair<const char*, const char*> table[] = {
        {"BaudText", "9600"},  {"Version", "V322"},
        {"ID", "ZLT-R-NX-42"}, {"SelectedDeviceID", "07abc"},
        {"SetSpeed", "5000"},  {"Accel", "250"},
        {"Current", "800"},    {"Pos", "-12"},
        {"EncPos", "34"}};
    for (const auto& [name, text] : table)
        EXPECT_EQ(shown(name), text) << name;
    form.close();
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_EQ(shown("Timer1"), "off");
}

TEST_F(MainControlFormTest, GatesThePollAndTheHomingByFirmware) {
    struct Row {
        const char* version;
        const std::string& tick;
        bool homing;
    };
    const Row table[] = {{"V316", shortTick, false},
                         {"V317", longTick, false},
                         {"V321", longTick, false},
                         {"V322", longTick, true}};
    for (const Row& row : table) {
        Panel panel;
        panel.load(row.version);
        EXPECT_EQ(panel.sentByTick(), row.tick) << row.version;
        for (const char* name : {"HLHOMEMINUS", "HLHOMEPLUS", "LHOMEMINUS", "LHOMEPLUS"})
            EXPECT_EQ(panel.enabled(name), row.homing) << row.version;
    }
}

TEST_F(MainControlFormTest, ShowsWhatThePollReads) {
    load();
    struct Row {
        const char *command, *control;
        std::vector<std::pair<const char*, const char*>> repliesAndTexts;
    };
    const Row table[] = {
        {"MST", "Stat", {{"0", "IDLE"}, {"1", "MOVING"}, {"3", "ACCEL"}, {"7", "DECEL"}}},
        {"MST", "Stat", {{"65", "-LIM ERR"}, {"192", "+LIM ERR"}, {"256", "IDLE"}}},
        {"MST", "NegLim", {{"8", "on"}, {"48", "off"}}},
        {"MST", "PosLim", {{"16", "on"}, {"40", "off"}}},
        {"MST", "Home", {{"33", "on"}, {"24", "off"}}},
        {"EO", "EnableStat", {{"2", "off"}, {"1", "on"}, {"0", "off"}}},
        {"DO", "InPosDO", {{"2", "off"}, {"1", "on"}, {"0", "off"}}},
        {"MM", "MoveMode", {{"0", "ABS"}, {"-3", "INC"}}},
        {"SPC", "ProgIndex", {{" 012 ", "12"}}},
        {"SASTAT", "ProgStatus", {{"1", "Running"}, {"3", "Running"}, {"2", "Paused"}}},
        {"SASTAT", "ProgStatus", {{"4", "Errored"}, {"0", "Idle"}}}};
    for (const auto& [command, control, repliesAndTexts] : table)
        for (const auto& [reply, text] : repliesAndTexts) {
            bus.replies[command] = reply;
            tick(form, "Timer1");
            EXPECT_EQ(shown(control), text) << command << " " << reply;
        }
    // What is under way and what is at fault stands out, each in a colour of its own.
    const auto grounds = [this](const char* motion, const char* program) {
        bus.replies["MST"] = motion;
        bus.replies["SASTAT"] = program;
        tick(form, "Timer1");
        std::vector<QRgb> colours;
        colours.reserve(3);
        for (const char* name : {"Pos", "Stat", "ProgStatus"})
            colours.push_back(control<QWidget>(form, name).palette().color(QPalette::Base).rgb());
        return colours;
    };
    const auto rest = grounds("0", "2"), busy = grounds("2", "1"), fault = grounds("64", "4");
    EXPECT_TRUE(rest[0] == rest[1] && rest[1] == rest[2]);
    EXPECT_TRUE(busy[0] == rest[0] && busy[1] == busy[2] && busy[1] != rest[1]);
    EXPECT_TRUE(fault[1] == fault[2] && fault[1] != rest[1] && fault[1] != busy[1]);
}

TEST_F(MainControlFormTest, KeepsOffWhatTheOperatorHolds) {
    load();
    auto& position = control<QLineEdit>(form, "Pos");
    auto& enabled = control<QCheckBox>(form, "EnableStat");
    tick(form, "Timer1");
    position.setSelection(1, 2);
    bus.replies["EO"] = "0";
    QTest::mousePress(&enabled, Qt::LeftButton, {}, QPoint(8, enabled.height() / 2));
    for (const bool pointerOnTheMark : {true, false}) {
        enabled.setDown(pointerOnTheMark);
        tick(form, "Timer1");
        EXPECT_TRUE(enabled.isChecked());
    }
    QTest::mouseRelease(&enabled, Qt::LeftButton, {}, QPoint(-50, -50));
    tick(form, "Timer1");
    EXPECT_FALSE(enabled.isChecked());
    EXPECT_EQ(position.selectedText(), QStringLiteral("12"));
}

TEST_F(MainControlFormTest, FailsTheLoad) {
    struct Row {
        const char *command, *reply;
        std::string sent;
    };
    const char* const silence = nullptr;
    const Row table[] = {{"DN", silence, "DN"},         {"DN", "", "DN"},
                         {"DN", "XZLD01", "DN"},        {"VER", silence, loadCommands},
                         {"ID", silence, loadCommands}, {"ACC", silence, loadCommands},
                         {"VER", "new", loadCommands},  {"no port", silence, ""}};
    for (const Row& row : table) {
        SCOPED_TRACE(row.command);
        Panel panel;
        panel.bus.opens = !row.sent.empty();
        if (row.reply)
            panel.bus.replies[row.command] = row.reply;
        else
            panel.bus.silentAt = row.command;
        if (row.sent == "DN")
            panel.gate.expectMessage("No Communication with device!",
                                     [&] { panel.expectState("No Communication", red); });
        panel.gate.expectMessage(std::string(portNotAvailable),
                                 [&] { panel.expectLost("Invalid Port", grey); });
        panel.open();
        EXPECT_EQ(panel.sent(), row.sent);
        EXPECT_EQ(panel.shown("SelectedDeviceID"), "01");
        EXPECT_EQ(panel.shown("Timer1"), "off");
        choose(panel.form, "SelectedDeviceID", "05");
        EXPECT_EQ(panel.sent(), "") << "there is no port to switch on";
        EXPECT_FALSE(panel.programEnd.ended());
        click(panel.form, "Command2");
        EXPECT_FALSE(panel.form.isVisible());
    }
}

TEST_F(MainControlFormTest, RunsASilentTickToItsEndThenProbesUntilAControllerAnswers) {
    const auto textColour = [this] {
        return control<QWidget>(form, "Pos").palette().color(QPalette::Text);
    };
    load();
    const QColor loaded = textColour();
    sentByTick();
    const QColor live = textColour();
    EXPECT_NE(loaded, live) << "the load reads nothing of it";
    disturbSync();
    bus.silent = true;
    EXPECT_EQ(sentByTick(), longTick);
    expectLost("No Communication", red);
    EXPECT_EQ(shown("Pos"), "0");
    EXPECT_NE(textColour(), live) << "the 0 is no live one";
    disturbSync();
    EXPECT_EQ(sentByTick(), "DN");
    expectLost("No Communication", red);

    bus.silent = false;
    bus.replies["DN"] = "ABC01";
    disturbSync();
    EXPECT_EQ(sentByTick(), "DN");
    EXPECT_EQ(shown("ComStatusDisplay"), "No Communication");
    EXPECT_EQ(shown("SyncPos"), "77") << "an answer resets nothing";

    bus.replies["DN"] = "ZLD01";
    bus.replies["VER"] = "V316";
    for (const char* command : {"VER", "ID"}) {
        bus.silentAt = command;
        EXPECT_EQ(sentByTick(), "DN|VER|ID");
        EXPECT_EQ(shown("ComStatusDisplay"), "No Communication");
    }
    bus.replies["DN"] = "ABC01";
    EXPECT_EQ(sentByTick(), "DN");
    EXPECT_EQ(shown("ID"), "???") << "no more of the probe that broke off";
    bus.replies["DN"] = "ZLD01";
    bus.silentAt.reset();
    EXPECT_EQ(sentByTick(), "DN|VER|ID");
    expectState("Communication OK", green);
    EXPECT_NE(textColour(), live) << "not read anew yet";
    for (const char* name : {"MoveMode", "ProgIndex", "ProgStatus"})
        EXPECT_EQ(shown(name), "") << "this firmware says nothing of it";
    EXPECT_EQ(sentByTick(), shortTick);
    EXPECT_EQ(textColour(), live);
    EXPECT_TRUE(enabled("HLHOMEPLUS")) << "as loaded";

    bus.silentAt = "EX";
    sentByTick();
    bus.replies["VER"] = "new";
    gate.expectMessage("The reply to the command VER is not a firmware version: \"new\"");
    EXPECT_EQ(sentByTick(), "DN|VER|ID");
    EXPECT_EQ(programEnd.exitCode(), 1);
}

TEST_F(MainControlFormTest, EndsTheProgramOnAReplyThatIsNoNumber) {
    for (const std::string command : {"MST", "EO", "MM", "DO", "SPC", "SASTAT"}) {
        Panel panel;
        panel.load();
        panel.bus.replies[command] = "12abc";
        panel.gate.expectMessage("The reply to the command " + command +
                                 " is not a number: \"12abc\"");
        EXPECT_EQ(panel.sentByTick(), longTick.substr(0, longTick.find(command) + command.size()));
        EXPECT_EQ(panel.programEnd.exitCode(), 1);
        EXPECT_EQ(panel.bus.portsOpen, 0);
        EXPECT_EQ(panel.sentByTick(), "");
    }
}

TEST_F(MainControlFormTest, EndsTheProgramWhenThePortIsLost) {
    load();
    bus.losesAtWriteOf = "EX";
    gate.expectMessage("Communication Error! Input/output error", [&] {
        EXPECT_EQ(sent(), "CUR|PX");
        EXPECT_EQ(sentByTick(), "") << "the poll waits for the message";
        EXPECT_EQ(shown("ComStatusDisplay"), "Communication OK");
    });
    gate.expectMessage(std::string(portNotAvailable), [&] {
        expectLost("Invalid Port", grey);
        EXPECT_EQ(shown("SelectedDeviceID"), "01");
    });
    EXPECT_EQ(sentByTick(), "");
    EXPECT_EQ(sentByTick(), "");
    EXPECT_EQ(programEnd.exitCode(), 1);
    EXPECT_FALSE(form.isVisible());

    Panel unopened;
    unopened.bus.losesAtWriteOf = "HSPD";
    unopened.gate.expectMessageWith("Communication Error!");
    unopened.gate.expectMessage(std::string(portNotAvailable));
    EXPECT_THROW(unopened.open(), ProgramEnd::Unwind);
    EXPECT_EQ(unopened.programEnd.exitCode(), 1);
}

TEST_F(MainControlFormTest, DemoStepsAfterTheReadsOfEachTick) {
    load("V316");
    click(form, "Command5");
    for (const char* step : {"|X8000", "|X0", "|X8000", "|X0"})
        EXPECT_EQ(sentByTick(), shortTick + step);
    EXPECT_EQ(shown("Command5"), "on");
    click(form, "Command5");
    EXPECT_EQ(sentByTick(), shortTick);
    EXPECT_EQ(shown("Command5"), "off");
}

TEST_F(MainControlFormTest, EndsTheDemoBeforeTheAxisCouldMoveByItself) {
    load();
    sentByTick();
    const auto expectEnded = [this](const std::string& by) {
        EXPECT_EQ(shown("Command5"), "off") << by;
        for (int ticks = 0; ticks < 3; ++ticks)
            EXPECT_EQ(sentByTick().find('X', longTick.size()), std::string::npos) << by;
    };
    for (const char* button : {"EnableOff", "EnableStat", "RSTOP", "ISTOP", "StopProg"}) {
        click(form, "Command5");
        click(form, button);
        sent();
        expectEnded(button);
    }
    bus.replies["EO"] = "0";
    sentByTick();
    click(form, "Command5");
    EXPECT_EQ(sentBy("EnableStat"), "EO|EO=1");
    EXPECT_EQ(shown("Command5"), "on") << "the driver is switched on";

    bus.silent = true;
    EXPECT_EQ(sentByTick(), longTick + "|X8000") << "a silent tick runs to its end";
    bus.silent = false;
    expectEnded("a silent tick");

    click(form, "Command5");
    bus.silentAt = "CLR";
    click(form, "clear");
    sent();
    sentByTick();
    expectEnded("a click that met the silence");
}

TEST_F(MainControlFormTest, SwitchesToAnotherDevice) {
    load();
    choose(form, "SelectedDeviceID", "01");
    EXPECT_EQ(sent(), "") << "the present one";

    bus.replies["DO"] = "1";
    bus.replies["VER"] = "V316";
    click(form, "Command5");
    tick(form, "Timer1");
    for (const char* mark : {"EnableLatch", "Scurve", "SyncEnable"})
        click(form, mark);
    bus.requests.clear();
    choose(form, "SelectedDeviceID", "07");
    EXPECT_EQ(control<QGroupBox>(form, "StopFrame").title(), QStringLiteral("Device 07"));
    EXPECT_EQ(bus.requests, (std::vector<std::string>{"@07ID", "@07VER", "@07ID"}));
    for (const char* name : {"MoveMode", "ProgIndex", "ProgStatus"})
        EXPECT_EQ(shown(name), "") << "the other device's";
    for (const char* name : {"InPosDO", "EnableLatch", "Scurve", "SyncEnable"})
        EXPECT_EQ(shown(name), "off") << name << ": the other device's";
    EXPECT_EQ(shown("DeviceIDComboTerminal"), "07");
    EXPECT_EQ(shown("Version"), "V316");
    sent();
    EXPECT_EQ(sentByTick(), shortTick) << "the demo moves no axis that was only selected";
    EXPECT_TRUE(enabled("HLHOMEPLUS")) << "as loaded";

    bus.replies["ID"] = "ZLD08";
    disturbSync();
    click(form, "Scurve");
    choose(form, "DeviceIDComboTerminal", "33");
    sent();
    gate.expectMessage("No Communication with the device at address 08");
    choose(form, "SelectedDeviceID", "08");
    EXPECT_EQ(sent(), "ID");
    expectLost("No Communication", red);
    EXPECT_EQ(shown("SelectedDeviceID"), "08");
    EXPECT_EQ(shown("Scurve"), "off");
    EXPECT_EQ(shown("DeviceIDComboTerminal"), "33") << "chosen by hand";
    tick(form, "Timer1");
    EXPECT_EQ(bus.requests[0], "@08DN") << "the probe goes on at the new address";
    sent();

    bus.silent = true;
    gate.expectMessage("The reply to the command VER is not a firmware version: \"0\"");
    choose(form, "SelectedDeviceID", "09");
    EXPECT_EQ(sent(), "ID|VER");
    EXPECT_EQ(programEnd.exitCode(), 1);
}

TEST_F(MainControlFormTest, ActsOnlyOnWhatTheOperatorMeans) {
    bus.replies["DN"] = "ZLD07";  // though 01 was asked
    load();
    auto& box = control<QComboBox>(form, "SelectedDeviceID");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Down})
        for (const char* name : {"SetSpeed", "SyncPos", "Pos", "SelectedDeviceID", "SetSpeed"}) {
            press(form, name, key);
            box.hidePopup();
        }
    QApplication::setActiveWindow(&form);
    box.setFocus();
    turnWheel(box);
    EXPECT_EQ(sent(), "");
    EXPECT_EQ(shown("SelectedDeviceID"), "07");
    EXPECT_TRUE(form.isVisible());

    QTest::mouseClick(box.lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(box.view()->isVisible()) << "a click on the text opens the list";
    box.hidePopup();
    gate.expectMessageWith("GUI Version: V315\rFirmware Version: ");
    click(form, "About");
    click(form, "Help");
    EXPECT_EQ(help.opened, "ZLT42R-485.HLP");
}

}  // namespace
}  // namespace zlt::test
