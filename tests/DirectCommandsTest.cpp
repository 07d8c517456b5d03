#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

#include "panel/MainControlForm.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {
namespace {

using Commands = std::vector<std::string>;

class DirectCommandsTest : public ::testing::Test, public World {
 protected:
    DirectCommandsTest() {
        answerAsController();
        form.Form_Load({{3}, "9600", "01"});
        form.show();
        tick(form, "Timer1");
        type("SetSpeed", "1000");
        type("Accel", "300");
        bus.takeCommands();
    }
    void type(const char* field, const char* utf8) {
        control<QLineEdit>(form, field).setText(QString::fromUtf8(utf8));
    }
    Commands commandsOf(const char* button) {
        click(form, button);
        return bus.takeCommands();
    }
    static Commands behindSettings(const char* command) {
        return {"HSPD=1000", "ACC=300", command};
    }
    bool hasFocus(const char* field) {
        return form.focusWidget() == &control<QWidget>(form, field);
    }
    bool checked(const char* box) { return control<QAbstractButton>(form, box).isChecked(); }

    MainControlForm form{services, nullptr};
};

TEST_F(DirectCommandsTest, SendSpeedAndAccelerationBeforeEveryMotionCommand) {
    type("SetPosition", "-500");
    const std::pair<const char*, const char*> table[] = {
        {"JOGP", "J+"},        {"JOGN", "J-"},          {"HOMEP", "H+"},     {"HOMEN", "H-"},
        {"HLHOMEPLUS", "HL+"}, {"HLHOMEMINUS", "HL-"},  {"LHOMEPLUS", "L+"}, {"LHOMEMINUS", "L-"},
        {"ZHOMEPLUS", "ZH+"},  {"ZHOMEMINUS", "ZH-"},   {"Command4", "Z+"},  {"Command3", "Z-"},
        {"RSTOP", "STOP"},     {"ISTOP", "ABORT"},      {"ABS", "X-500"},    {"ResetPos", "PX=0"},
        {"ResetEnc", "EX=0"},  {"ResetEncoder", "EX=0"}};
    for (const auto& [button, command] : table)
        EXPECT_EQ(commandsOf(button), behindSettings(command)) << button;
}

TEST_F(DirectCommandsTest, SendOneCommandAlone) {
    type("SetSpeed", " 12,5x ");
    type("SetPosition", " 7 \xC2\xB5");
    const std::pair<const char*, const char*> table[] = {
        {"ABSMode", "ABS"},         {"INCMode", "INC"},
        {"SSPD", "SSPD 12,5x "},    {"Command7", "PX= 7 \xB5"},
        {"Command6", "EX= 7 \xB5"}, {"EnableOn", "EO=1"},
        {"EnableOff", "EO=0"},      {"clear", "CLR"}};
    for (const auto& [button, command] : table)
        EXPECT_EQ(commandsOf(button), Commands{command}) << button;
}

TEST_F(DirectCommandsTest, FillEmptyBoxes) {
    type("SetSpeed", "");
    type("Accel", "");
    type("SetPosition", "");
    EXPECT_EQ(commandsOf("ABS"), (Commands{"HSPD=0", "ACC=100", "X"}));
    EXPECT_EQ(textOf(form, "SetSpeed"), "0");
    EXPECT_EQ(textOf(form, "Accel"), "100");
    EXPECT_EQ(textOf(form, "SetPosition"), "");
    EXPECT_EQ(commandsOf("Command6"), Commands{"EX=0"});
    EXPECT_EQ(textOf(form, "SetPosition"), "0");
}

TEST_F(DirectCommandsTest, RoundSpeedAndAcceleration) {
    for (const auto& [typed, sent] : {std::pair{"2.5", "2"},
                                      {"3.5", "4"},
                                      {"-2.5", "-2"},
                                      {" 250", "250"},
                                      {"1000.6", "1001"}}) {
        type("SetSpeed", typed);
        type("Accel", typed);
        EXPECT_EQ(commandsOf("JOGP"),
                  (Commands{std::string("HSPD=") + sent, std::string("ACC=") + sent, "J+"}));
    }
}

TEST_F(DirectCommandsTest, RefuseABadNumberBeforeAnythingIsSent) {
    bus.replies["MM"] = "1";
    for (const char* bad : {"nan", "inf", "12abc", "1,5", "2147483648", "\u22125", " "})
        for (const char* field : {"SetSpeed", "Accel"}) {
            type("SetSpeed", "1000");
            type("Accel", "300");
            type(field, bad);
            const std::string label = field == std::string("Accel") ? "Accel" : "High Speed";
            for (const char* button : {"JOGP", "ResetPos", "ABS", "Datum"}) {
                gate.expectMessageWith("\"" + std::string(bad) + "\" in the field \"" + label);
                EXPECT_EQ(commandsOf(button), Commands{}) << button;
                EXPECT_TRUE(hasFocus(field));
            }
        }
    tick(form, "Timer1");
    EXPECT_FALSE(bus.takeCommands().empty()) << "the poll goes on";
}

TEST_F(DirectCommandsTest, StopWhateverStandsInTheBoxes) {
    const auto noCommandsSince = [this](const Commands& sent) {
        return [this, sent] { EXPECT_EQ(bus.takeCommands(), sent) << "the message comes after"; };
    };
    for (const auto& [button, command] : {std::pair{"RSTOP", "STOP"}, {"ISTOP", "ABORT"}}) {
        type("SetSpeed", "fast");
        type("Accel", "300");
        gate.expectMessage(
            "\"fast\" in the field \"High Speed\" is not a whole number from -2147483648 to "
            "2147483647.",
            noCommandsSince({"ACC=300", command}));
        click(form, button);
        type("SetSpeed", "1000");
        type("Accel", "99999999999");
        gate.expectMessage(
            "\"99999999999\" in the field \"Accel\" is not a whole number from -2147483648 to "
            "2147483647.",
            noCommandsSince({"HSPD=1000", command}));
        click(form, button);
        type("SetSpeed", "fast");
        gate.expectMessageWith("High Speed");
        EXPECT_EQ(commandsOf(button), Commands{command});
    }
}

TEST_F(DirectCommandsTest, RefuseAPositionThatTheWireCannotCarry) {
    type("SetPosition",
         "\xE2\x88\x92"
         "500");
    for (const char* button : {"ABS", "Command7", "Command6"}) {
        gate.expectMessageWith("U+2212");
        EXPECT_EQ(commandsOf(button), Commands{}) << button;
    }
    for (const char* pasted : {"10\r@01J+", "10\n", "1\t"}) {
        type("SetPosition", pasted);
        gate.expectMessageWith("control character");
        EXPECT_EQ(commandsOf("ABS"), Commands{}) << pasted;
    }
}

TEST_F(DirectCommandsTest, GoToTheDatumInWhateverMode) {
    bus.replies["MM"] = "1";
    EXPECT_EQ(commandsOf("Datum"), (Commands{"MM", "ABS", "HSPD=1000", "ACC=300", "X0", "INC"}));
    for (const char* reply : {"0", "01", "1 ", "OK", ""}) {
        bus.replies["MM"] = reply;
        EXPECT_EQ(commandsOf("Datum"), (Commands{"MM", "HSPD=1000", "ACC=300", "X0"})) << reply;
    }
}

TEST_F(DirectCommandsTest, AskThePresentFirmwareForTheNewHoming) {
    bus.replies["VER"] = "V321";
    choose(form, "SelectedDeviceID", "02");
    bus.takeCommands();
    for (const char* button : {"HLHOMEPLUS", "HLHOMEMINUS", "LHOMEPLUS", "LHOMEMINUS"})
        EXPECT_EQ(commandsOf(button), Commands{}) << button;
    EXPECT_EQ(commandsOf("HOMEP"), behindSettings("H+"));
}

TEST_F(DirectCommandsTest, EndTheDemoWithAStop) {
    for (const char* stop : {"RSTOP", "ISTOP"}) {
        click(form, "Command5");
        EXPECT_TRUE(checked("Command5"));
        type("SetSpeed", stop == std::string("ISTOP") ? "bad" : "1000");
        if (stop == std::string("ISTOP"))
            gate.expectMessageWith("High Speed");
        click(form, stop);
        EXPECT_FALSE(checked("Command5"));
        bus.takeCommands();
        tick(form, "Timer1");
        EXPECT_EQ(bus.takeCommands().back(), "SASTAT");
    }
}

TEST_F(DirectCommandsTest, ToggleByTheControllersWord) {
    struct Row {
        const char *button, *query, *setting;
    };
    const Row table[] = {{"DOSet1", "DO1", "DO1"},
                         {"DOSet2", "DO2", "DO2"},
                         {"DOSet3", "DO3", "DO3"},
                         {"EnableLatch", "LTS", "LT"}};
    for (const Row& row : table)
        for (const auto& [reply, sent] : {std::pair{"0", "=1"},
                                          {" 0.4", "=1"},
                                          {"1", "=0"},
                                          {"-7", "=0"},
                                          {"OK", "=0"},
                                          {"", "=0"}}) {
            bus.replies[row.query] = reply;
            EXPECT_EQ(commandsOf(row.button),
                      (Commands{row.query, std::string(row.setting) + sent}))
                << reply;
        }
    bus.answer = [](const std::string& request) -> std::optional<std::string> {
        return request == "@01LTS" ? std::nullopt : std::optional<std::string>("OK");
    };
    EXPECT_EQ(commandsOf("EnableLatch"), (Commands{"LTS", "LT=1"})) << "silence reads 0";
}

TEST_F(DirectCommandsTest, SwitchTheOutputByItsLamp) {
    EXPECT_EQ(commandsOf("d1"), Commands{"DO=1"});
    bus.replies["DO"] = "1";
    tick(form, "Timer1");
    bus.takeCommands();
    EXPECT_EQ(commandsOf("d1"), Commands{"DO=0"});

    bus.replies["VER"] = "V316";  // which never tells the output: the lamp goes out
    choose(form, "SelectedDeviceID", "02");
    tick(form, "Timer1");
    bus.takeCommands();
    EXPECT_EQ(commandsOf("d1"), Commands{"DO=1"});
}

TEST_F(DirectCommandsTest, EnableTheDriverOnlyAgainstTheControllersWord) {
    struct Row {
        bool markBefore;
        const char* reply;
        Commands sent;
    };
    const Row table[] = {{false, "0", {"EO", "EO=1"}}, {false, "1", {"EO"}},
                         {false, "2", {"EO"}},         {false, "x", {"EO"}},
                         {true, "1", {"EO", "EO=0"}},  {true, "0", {"EO"}},
                         {true, "2", {"EO"}}};
    for (const Row& row : table) {
        control<QCheckBox>(form, "EnableStat").setChecked(row.markBefore);
        EXPECT_EQ(bus.takeCommands(), Commands{}) << "only a click acts";
        bus.replies["EO"] = row.reply;
        EXPECT_EQ(commandsOf("EnableStat"), row.sent) << row.reply;
    }
}

TEST_F(DirectCommandsTest, RewriteConditionAndPositionAtEverySyncClick) {
    type("SyncPos", " 1500.5 ");
    click(form, "SyncLessThan");
    EXPECT_EQ(bus.takeCommands(), Commands{});
    EXPECT_EQ(commandsOf("SyncEnable"), (Commands{"SYNC=2", "SYNP=1500", "SYNO"}));
    click(form, "SyncGreaterThan");
    EXPECT_EQ(commandsOf("SyncEnable"), (Commands{"SYNC=3", "SYNP=1500", "SYNF"}));

    type("SyncPos", "x");
    gate.expectMessageWith("\"x\" in the field");
    EXPECT_EQ(commandsOf("SyncEnable"), Commands{});
    EXPECT_FALSE(checked("SyncEnable"));
    EXPECT_TRUE(hasFocus("SyncPos"));
    control<QCheckBox>(form, "SyncEnable").setChecked(true);
    gate.expectMessageWith("\"x\" in the field");
    EXPECT_EQ(commandsOf("SyncEnable"), (Commands{"SYNC=3", "SYNF"}));
}

TEST_F(DirectCommandsTest, ReadConditionAndPositionBeforeTheFirstSyncCommand) {
    type("SyncPos", "1500");
    click(form, "SyncLessThan");
    bus.answer = [](const std::string& request) -> std::optional<std::string> {
        return request == "@01SYNC=2" ? std::nullopt : std::optional<std::string>("OK");
    };
    EXPECT_EQ(commandsOf("SyncEnable"), (Commands{"SYNC=2", "SYNP=1500", "SYNO"}));
    EXPECT_EQ(textOf(form, "SyncPos"), "0") << "the time-out puts the boxes back";
}

TEST_F(DirectCommandsTest, SwitchTheScurve) {
    EXPECT_EQ(commandsOf("Scurve"), Commands{"SCV=1"});
    EXPECT_EQ(commandsOf("Scurve"), Commands{"SCV=0"});
    EXPECT_EQ(commandsOf("OnScurve"), Commands{"SCV=1"});
    EXPECT_EQ(commandsOf("OffScurve"), Commands{"SCV=0"});
    for (const char* reply : {"", "ok", "0", "OK "}) {
        bus.replies["SCV=1"] = reply;
        gate.expectMessage("Error Setting Scurve!");
        EXPECT_EQ(commandsOf("OnScurve"), Commands{"SCV=1"});
        EXPECT_EQ(commandsOf("OffScurve"), Commands{"SCV=0"});
    }
    bus.replies["MST"] = "1";
    tick(form, "Timer1");
    bus.takeCommands();
    for (const char* button : {"OnScurve", "OffScurve"}) {
        gate.expectMessage("Cannot set while running!");
        EXPECT_EQ(commandsOf(button), Commands{});
    }
    EXPECT_EQ(commandsOf("Scurve"), Commands{"SCV=1"}) << "the check box asks nobody";
}

}  // namespace
}  // namespace zlt::test
