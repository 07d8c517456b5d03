#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/Controller.h"

namespace zlt::sim {
namespace {

using namespace std::chrono_literals;

// A conversation: each command with the answer it must get, all at one moment.
using Conversation = std::vector<std::pair<std::string, std::string>>;

void expectConversation(Controller& controller, Time now, const Conversation& lines) {
    for (const auto& [command, answer] : lines) {
        EXPECT_EQ(controller.execute(command, now), answer) << command;
    }
}

TEST(Controller, answersQueriesAndSettings) {
    Controller controller({});
    expectConversation(
        controller, 0ms,
        {{"DN", "ZLD01"},     {"VER", "V322"},      {"ID", "ZLT-R-NX-42"}, {"HSPD", "1000"},
         {"HSPD=2500", "OK"}, {"HSPD", "2500"},     {"ACC=0", "?ACC=0"},   {"MS=8", "?MS=8"},
         {"MS=4", "OK"},      {"MS", "4"},          {"POL=32", "?POL=32"}, {"POL=31", "OK"},
         {"PX=-42", "OK"},    {"PX", "-42"},        {"EX", "0"},           {"EX=7", "OK"},
         {"EX", "7"},         {"MM", "0"},          {"INC", "OK"},         {"MM", "1"},
         {"ABS", "OK"},       {"LTS", "0"},         {"LT=1", "OK"},        {"LTS", "1"},
         {"V31=-5", "OK"},    {"V31", "-5"},        {"V32", "?V32"},       {"V01", "?V01"},
         {"EO=2", "?EO=2"},   {"SSPD10", "?SSPD10"}});
}

TEST(Controller, refusesWhatIsMalformed) {
    Controller controller({});
    for (const std::string command :
         {"", "X", "Xabc", "X 5", "X5 ", "X2147483648", "X+-5", "HSPD=", "hspd", "DN=", "DN=ZLD5",
          "DN=ZLD00", "DN=ABC05", "SR=4", "J", "SAPW0", "SAPR-1", "V1=1,5"}) {
        EXPECT_EQ(controller.execute(command, 0ms), "?" + command);
    }
    EXPECT_EQ(controller.execute(std::string("A\0\xFF", 3), 0ms), "?A..");
    EXPECT_LE(controller.execute(std::string(250, 'x'), 0ms).size(), 33U);
}

TEST(Controller, firmwareDecidesWhatItKnows) {
    struct Gate {
        std::string command;
        int firmware;
    };
    for (const Gate& gate : {Gate{"MM", 317},
                             {"DO", 317},
                             {"SPC", 317},
                             {"SASTAT", 317},
                             {"DL=1", 317},
                             {"HL+", 322},
                             {"L-", 322},
                             {"LCA", 322},
                             {"HCA=5", 322},
                             {"DOBOOT", 322},
                             {"SASTAT1", 322},
                             {"SR1=0", 322},
                             {"DO=1", 100},
                             {"DO3", 100},
                             {"ZH+", 100}}) {
        Controller before({.firmware = gate.firmware - 1});
        Controller from({.firmware = gate.firmware});
        EXPECT_EQ(before.execute(gate.command, 0ms) == "?" + gate.command, gate.firmware > 100)
            << gate.command;
        EXPECT_NE(from.execute(gate.command, 0ms), "?" + gate.command) << gate.command;
    }
}

TEST(Controller, onlyWhatWasStoredSurvivesAPowerCycle) {
    Controller controller({});
    controller.execute("CURR=700", 0ms);
    controller.execute("DN=ZLD07", 0ms);
    controller.execute("DB=3", 0ms);
    controller.execute("STORE", 0ms);
    expectConversation(controller, 0ms,
                       {{"DN", "ZLD01"},
                        {"DB", "1"},
                        {"CURI=900", "OK"},
                        {"V15=1", "OK"},
                        {"V16=2", "OK"},
                        {"X500", "OK"}});
    controller.powerCycle(100ms);
    EXPECT_EQ(controller.id(), 7);
    EXPECT_EQ(controller.baud(), 38400);
    expectConversation(controller, 100ms,
                       {{"DN", "ZLD07"},
                        {"DB", "3"},
                        {"CURR", "700"},
                        {"CURI", "500"},
                        {"V15", "0"},
                        {"V16", "2"},
                        {"MST", "0"},
                        {"PX", "0"}});
}

TEST(Controller, bootSettingsActAtPowerUp) {
    Controller controller({});
    for (const char* command : {"SAPW0=A", "SAPW1=PRG 1", "SLOAD=2", "DOBOOT=5", "STORE"}) {
        ASSERT_EQ(controller.execute(command, 0ms), "OK") << command;
    }
    controller.powerCycle(0ms);
    expectConversation(
        controller, 0ms,
        {{"SASTAT0", "0"}, {"SASTAT1", "1"}, {"DO", "1"}, {"DO2", "0"}, {"DO3", "1"}});
}

TEST(Controller, currentFollowsTheMotor) {
    Controller controller({});
    expectConversation(controller, 0ms,
                       {{"CUR", "500"},
                        {"J+", "OK"},
                        {"CUR", "1000"},
                        {"EO=0", "OK"},
                        {"CUR", "0"},
                        {"J+", "?J+"}});
}

TEST(Controller, incrementalMovesCountFromHere) {
    Controller controller({});
    expectConversation(
        controller, 0ms,
        {{"PX=100", "OK"}, {"INC", "OK"}, {"X-50", "OK"}, {"X-50", "?X-50"}, {"SCV=1", "?SCV=1"}});
    expectConversation(controller, 5s, {{"PX", "50"}, {"X-50", "OK"}, {"ABS", "OK"}});
    expectConversation(controller, 10s, {{"PX", "0"}, {"X-50", "OK"}});
    expectConversation(controller, 15s, {{"PX", "-50"}, {"EX", "-150"}, {"SCV=1", "OK"}});
}

TEST(Controller, theSyncOutputFollowsThePosition) {
    struct Case {
        std::string mode;
        std::string below, at, above;
    };
    for (const Case& each :
         {Case{"1", "0", "1", "0"}, Case{"2", "1", "0", "0"}, Case{"3", "0", "0", "1"}}) {
        Controller controller({});
        expectConversation(controller, 0ms,
                           {{"SYNC=" + each.mode, "OK"},
                            {"SYNP=10", "OK"},
                            {"DO=1", "OK"},
                            {"SYNO", "OK"},
                            {"DO", each.below},
                            {"PX=10", "OK"},
                            {"DO", each.at},
                            {"PX=11", "OK"},
                            {"DO1", each.above},
                            {"SYNF", "OK"},
                            {"DO", "1"}});
    }
}

TEST(Controller, programMemoryOverTheBus) {
    Controller controller({});
    expectConversation(controller, 0ms,
                       {{"SAPN", "0"},
                        {"SAPW1=x", "?SAPW1=x"},
                        {"SAPW0=V1=#5", "OK"},
                        {"SAPW1=", "OK"},
                        {"SAPN", "2"},
                        {"SAPR0", ":V1=#5"},
                        {"SAPR1", ":"},
                        {"SAPR2", "?SAPR2"},
                        {"SR=1", "OK"},
                        {"SAPC", "?SAPC"},
                        {"SR=2", "OK"},
                        {"SAPW0=y", "?SAPW0=y"},
                        {"SR=0", "OK"}});
    controller.powerCycle(1s);
    expectConversation(controller, 1s, {{"SAPN", "2"}, {"SAPC", "OK"}, {"SAPN", "0"}});
}

}  // namespace
}  // namespace zlt::sim
