#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>

#include "support/PanelWorld.h"

namespace zlt::test {
namespace {

class DirectCommandsTest : public ::testing::Test, public PanelWorld {
 protected:
    DirectCommandsTest() {
        load();
        tick(form, "Timer1");
        type("SetSpeed", "1000");
        type("Accel", "300");
        sent();
    }
    void type(const char* field, const char* utf8) {
        control<QLineEdit>(form, field).setText(QString::fromUtf8(utf8));
    }
    bool hasFocus(const char* field) {
        return form.focusWidget() == &control<QWidget>(form, field);
    }
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
        EXPECT_EQ(sentBy(button), std::string("HSPD=1000|ACC=300|") + command) << button;
}

TEST_F(DirectCommandsTest, SendOneCommandAlone) {
    type("SetSpeed", " 12,5x ");
    type("SetPosition", " 7 \xC2\xB5");
    const std::pair<const char*, const char*> table[] = {
        {"ABSMode", "ABS"},         {"INCMode", "INC"},         {"SSPD", "SSPD 12,5x "},
        {"Command7", "PX= 7 \xB5"}, {"Command6", "EX= 7 \xB5"}, {"EnableOn", "EO=1"},
        {"EnableOff", "EO=0"},      {"clear", "CLR"},           {"Scurve", "SCV=1"},
        {"Scurve", "SCV=0"}};
    for (const auto& [button, command] : table)
        EXPECT_EQ(sentBy(button), command) << button;
}

TEST_F(DirectCommandsTest, FillEmptyBoxesAndRoundTheOthers) {
    type("SetPosition", "");
    struct Row {
        const char *speed, *acceleration, *sent;
    };
    const Row table[] = {{"2.5", "3.5", "HSPD=2|ACC=4|X"},
                         {"-2.5", " 250", "HSPD=-2|ACC=250|X"},
                         {"1000\r\n", "\t 300 \n", "HSPD=1000|ACC=300|X"},
                         {"", "", "HSPD=0|ACC=100|X"}};
    for (const Row& row : table) {
        type("SetSpeed", row.speed);
        type("Accel", row.acceleration);
        EXPECT_EQ(sentBy("ABS"), row.sent);
    }
    EXPECT_EQ(shown("SetSpeed") + shown("Accel") + shown("SetPosition"), "0100");
    EXPECT_EQ(sentBy("Command6"), "EX=0");
    EXPECT_EQ(shown("SetPosition"), "0");
}

TEST_F(DirectCommandsTest, RefuseABadNumberBeforeAnythingIsSent) {
    bus.replies["MM"] = "1";
    constexpr auto noNumber = "is not a whole number from -2147483648 to 2147483647.";
    constexpr auto tooLarge = "is out of range: from -2147483648 to 2147483647.";
    const std::pair<const char*, const char*> table[] = {{"1,5", noNumber},
                                                         {"\u22125", noNumber},
                                                         {"2147483648", tooLarge},
                                                         {"-99999999999999999999", tooLarge}};
    for (const auto& [field, label] : {std::pair{"SetSpeed", "High Speed"}, {"Accel", "Accel"}}) {
        for (const auto& [bad, words] : table) {
            type(field, bad);
            for (const char* button : {"JOGP", "ResetPos", "ABS", "Datum"}) {
                gate.expectMessage("\"" + std::string(bad) + "\" in the field \"" + label + "\" " +
                                   words);
                EXPECT_EQ(sentBy(button), "") << button;
                EXPECT_TRUE(hasFocus(field));
            }
        }
        type(field, "1");
    }
    EXPECT_NE(sentByTick(), "") << "the poll goes on";
}

TEST_F(DirectCommandsTest, StopWhateverStandsInTheBoxesAndEndTheDemo) {
    struct Row {
        const char *speed, *acceleration, *settings, *badField;
    };
    const Row table[] = {{"1000", "300", "HSPD=1000|ACC=300|", nullptr},
                         {"fast", "300", "ACC=300|", "\"fast\" in the field \"High Speed\""},
                         {"1000", "9e9", "HSPD=1000|", "\"9e9\" in the field \"Accel\""},
                         {"fast", "9e9", "", "\"fast\" in the field \"High Speed\""}};
    for (const auto& [button, command] : {std::pair{"RSTOP", "STOP"}, {"ISTOP", "ABORT"}})
        for (const Row& row : table) {
            click(form, "Command5");
            EXPECT_EQ(shown("Command5"), "on");
            type("SetSpeed", row.speed);
            type("Accel", row.acceleration);
            const std::string expected = std::string(row.settings) + command;
            if (row.badField)
                gate.expectMessage(std::string(row.badField) +
                                       " is not a whole number from -2147483648 to 2147483647.",
                                   [&] { EXPECT_EQ(sent(), expected) << "before the message"; });
            EXPECT_EQ(sentBy(button), row.badField ? "" : expected);
            EXPECT_EQ(shown("Command5"), "off");
            EXPECT_TRUE(sentByTick().ends_with("SASTAT")) << "no step of the demo";
        }
}

TEST_F(DirectCommandsTest, RefuseATextThatTheWireCannotCarryAndPointToIt) {
    struct Row {
        const char *button, *field, *label;
    };
    const Row table[] = {{"ABS", "SetPosition", "Position"},
                         {"Command7", "SetPosition", "Position"},
                         {"SSPD", "SetSpeed", "High Speed"},
                         {"Command6", "SetPosition", "Position"}};
    for (const auto& [typed, words] :
         {std::pair{"\u2212500", "The character \"\u2212\""}, {"10\r@01J+", "The text holds"}})
        for (const Row& row : table) {
            type(row.field, typed);
            gate.expectMessageWith("In the field \"" + std::string(row.label) + "\": " + words);
            EXPECT_EQ(sentBy(row.button), "") << row.button;
            EXPECT_TRUE(hasFocus(row.field)) << row.button;
        }
}

TEST_F(DirectCommandsTest, GoByTheControllersWord) {
    struct Row {
        const char *button, *query;
        std::vector<std::pair<const char*, const char*>> repliesAndSent;
    };
    const Row table[] = {
        {"DOSet1", "DO1", {{"0", "DO1|DO1=1"}, {"1", "DO1|DO1=0"}}},
        {"DOSet2", "DO2", {{"0", "DO2|DO2=1"}, {"-7", "DO2|DO2=0"}}},
        {"DOSet3", "DO3", {{"0", "DO3|DO3=1"}, {"OK", "DO3|DO3=0"}}},
        {"EnableLatch", "LTS", {{" 0.4", "LTS|LT=1"}, {"", "LTS|LT=0"}}},
        // Each click turns its mark, which is set at first.
        {"EnableStat", "EO", {{"1", "EO|EO=0"}, {"0", "EO|EO=1"}, {"0", "EO"}, {"1", "EO"}}},
        {"EnableStat", "EO", {{"2", "EO"}, {"x", "EO"}}},
        {"Datum", "MM", {{"0", "MM|HSPD=1000|ACC=300|X0"}, {"01", "MM|HSPD=1000|ACC=300|X0"}}},
        {"Datum", "MM", {{"1", "MM|ABS|HSPD=1000|ACC=300|X0|INC"}}}};
    for (const auto& [button, query, repliesAndSent] : table)
        for (const auto& [reply, commands] : repliesAndSent) {
            bus.replies[query] = reply;
            EXPECT_EQ(sentBy(button), commands) << button << " " << reply;
        }
    EXPECT_EQ(shown("EnableLatch"), "off") << "as was sent";
    EXPECT_EQ(sentBy("EnableLatch"), "LTS|LT=0");
    EXPECT_EQ(shown("EnableLatch"), "off") << "whatever the click left";
    bus.silentAt = "LTS";
    EXPECT_EQ(sentBy("EnableLatch"), "LTS|LT=1") << "silence reads 0";
    EXPECT_EQ(shown("EnableLatch"), "on");
}

TEST_F(DirectCommandsTest, GoByThePresentDevice) {
    EXPECT_EQ(sentBy("d1"), "DO=1");
    bus.replies["DO"] = "1";
    sentByTick();
    EXPECT_EQ(sentBy("d1"), "DO=0");
    bus.replies["VER"] = "V316";
    choose(form, "SelectedDeviceID", "02");
    sentByTick();
    EXPECT_EQ(sentBy("d1"), "DO=1") << "this firmware never tells the output: the lamp is out";
    for (const char* button : {"HLHOMEPLUS", "HLHOMEMINUS", "LHOMEPLUS", "LHOMEMINUS"})
        EXPECT_EQ(sentBy(button), "") << button;
}

TEST_F(DirectCommandsTest, RewriteConditionAndPositionAtEverySyncClick) {
    type("SyncPos", " 1500.5\n");
    EXPECT_EQ(sentBy("SyncLessThan"), "");
    EXPECT_EQ(sentBy("SyncEnable"), "SYNC=2|SYNP=1500|SYNO");
    click(form, "SyncGreaterThan");
    EXPECT_EQ(sentBy("SyncEnable"), "SYNC=3|SYNP=1500|SYNF");
    click(form, "SyncEqual");
    bus.silentAt = "SYNC=1";
    EXPECT_EQ(sentBy("SyncEnable"), "SYNC=1|SYNP=1500|SYNO") << "read before the first command";
    EXPECT_EQ(shown("SyncPos"), "0") << "the time-out puts the boxes back";

    bus.silentAt.reset();
    type("SyncPos", "x");
    gate.expectMessageWith("\"x\" in the field");
    EXPECT_EQ(sentBy("SyncEnable"), "SYNC=1|SYNF");
    gate.expectMessageWith("\"x\" in the field");
    EXPECT_EQ(sentBy("SyncEnable"), "");
    EXPECT_EQ(shown("SyncEnable"), "off");
    EXPECT_TRUE(hasFocus("SyncPos"));
}

TEST_F(DirectCommandsTest, SwitchTheScurveAtRestAndTellWhatItAnswers) {
    std::string mark = "off";
    for (const auto& [button, command] : {std::pair{"OnScurve", "SCV=1"}, {"OffScurve", "SCV=0"}}) {
        EXPECT_EQ(shown("Scurve"), mark) << "as set last";
        mark = button == std::string("OnScurve") ? "on" : "off";
        EXPECT_EQ(sentBy(button), command);
        EXPECT_EQ(shown("Scurve"), mark);
        for (const char* reply : {"", "ok", "OK "}) {
            bus.replies[command] = reply;
            gate.expectMessage("Error Setting Scurve!");
            EXPECT_EQ(sentBy(button), command) << reply;
        }
        bus.replies["MST"] = "1";
        sentByTick();
        gate.expectMessage("Cannot set while running!",
                           [this] { EXPECT_EQ(sentByTick(), "") << "the poll waits"; });
        EXPECT_EQ(sentBy(button), "");
        bus.replies["MST"] = "0";
        sentByTick();
    }
}

}  // namespace
}  // namespace zlt::test
