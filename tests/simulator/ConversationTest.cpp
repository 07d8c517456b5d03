// What controllers say to commands, each at its time.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/Controller.h"

namespace zlt::sim {
namespace {

using namespace std::chrono_literals;

/// The answers to commands that are all sent at one moment; both are parted by semicolons.
/// "power" is no command but turns the controller off and on, and gives its address and rate;
/// "firmware" and a number changes that.
std::string answersTo(Controller& controller, std::string commands, Time now) {
    std::string answers;
    for (commands += ';'; !commands.empty(); commands.erase(0, commands.find(';') + 1)) {
        const std::string command = commands.substr(0, commands.find(';'));
        if (command == "power") {
            controller.powerCycle(now);
            answers += std::to_string(controller.id()) + "@" + std::to_string(controller.baud());
        } else if (command.starts_with("firmware ")) {
            controller.replaceFirmware(std::stoi(command.substr(9)));
        } else {
            answers += controller.execute(command, now);
        }
        answers += ';';
    }
    answers.pop_back();
    return answers;
}

struct Moment {
    int at;  // milliseconds from the start
    std::string commands;
    std::string answers;
};

const std::pair<std::string, std::vector<Moment>> conversations[] = {
    {"queries and settings",
     {{0, "DN;VER;ID;HSPD;HSPD=2500;HSPD", "ZLD01;V322;ZLT-R-NX-42;1000;OK;2500"},
      {0, "MS=8;MS=4;MS;POL=32;V31=-5;V31;V32", "?MS=8;OK;4;?POL=32;OK;-5;?V32"},
      {0, "X5 ;hspd;DN=ZLD00;\xFFx", "?X5 ;?hspd;?DN=ZLD00;?.x"}}},
    {"commands are known from their firmware on",
     {{0, "firmware 316;MM;SASTAT;DL=1", ";?MM;?SASTAT;?DL=1"},
      {0, "firmware 317;MM;SASTAT;DL=1;HL+;LCA;SR1=0", ";0;0;OK;?HL+;?LCA;?SR1=0"},
      {0, "firmware 322;LCA;HCA=5;SR1=0;L-", ";0;OK;OK;OK"}}},
    {"a trapezoid that ends exactly on its target",
     {{0, "X1000;X0", "OK;?X0"},
      {100, "MST", "3"},
      {300, "PX", "150"},
      {600, "MST;CUR", "1;1000"},
      {1200, "MST", "5"},
      {1320, "MST;PX;EX;CUR", "0;1000;1000;500"}}},
    {"a stop has a ramp, an abort has none",
     {{0, "J-", "OK"},
      {500, "STOP", "OK"},
      {900, "MST;PX;J+", "0;-500;OK"},
      {1400, "ABORT;MST", "OK;0"},
      {2000, "PX", "-150"}}},
    {"a limit ends the move and bars that way until it is cleared or disabled",
     {{0, "J+", "OK"},
      {25000, "PX;MST;J+;X19999", "20000;144;?J+;OK"},
      {26000, "MST;CLR;MST;J+", "128;OK;0;OK"},
      {27000, "MST;DL=1;CLR;X20500", "144;OK;OK;OK"},
      {30000, "PX;MST", "20500;16"}}},
    {"an output is as it was set, but the first is ruled by the position while told so",
     {{0, "DO2=1;DO1;DO2;DO3;DO2=0;DO2", "OK;0;1;0;OK;0"},
      {0, "DO=1;DO;DO=0;SYNC=2;SYNO", "OK;1;OK;OK;OK"},
      {0, "DO1;PX=-1;DO1;SYNF;DO1", "0;OK;1;OK;0"}}},
    {"only what was stored survives a power cycle",
     {{0, "CURR=700;DN=ZLD07;RT=1;DB=3;STORE;DN;DB", "OK;OK;OK;OK;OK;ZLD01;1"},
      {0, "CURI=900;V15=1;V16=2;X500", "OK;OK;OK;OK"},
      {100, "power;DN;DB;RT;CURR;CURI", "7@38400;ZLD07;3;1;700;500"},
      {100, "V15;V16;MST;PX", "0;2;0;0"}}},
    {"a program runs, pauses, continues and stops",
     {{0, "SAPW1=x;SAPW0=a;SAPW1=;SAPW2=c;SAPN", "?SAPW1=x;OK;OK;OK;3"},
      {0, "SAPR0;SAPR3;SR=3;SR=1", ":a;?SAPR3;?SR=3;OK"},
      {45, "SPC;SASTAT;SASTAT1;SR=2", "2;1;0;OK"},
      {10000, "SPC;SASTAT;SR=3", "2;2;OK"},
      {10020, "SPC;SR=0;SASTAT", "0;OK;0"},
      {10020, "power;SAPN;SAPC;SAPN", "1@9600;3;OK;0"}}},
    {"threads have their own parts and ends, and start at power-up as told",
     {{0, "SR1=1;SASTAT1;CLR;SASTAT1", "OK;4;OK;0"},
      {0, "SAPW0=a;SAPW1= END;SAPW2=PRG 1;SAPW3=b;SR=1", "OK;OK;OK;OK;OK"},
      {86'400'000, "SASTAT;SPC;SASTAT1", "0;1;1"},
      {86'400'000, "SLOAD=2;DOBOOT=5;STORE;SR=0", "OK;OK;OK;OK"},
      {86'400'000, "power;SASTAT0;SASTAT1;DO1;DO2;DO3", "1@9600;0;1;1;0;1"}}},
};

TEST(Controller, HoldsConversations) {
    for (const auto& [name, moments] : conversations) {
        Controller controller({});
        for (const auto& [at, commands, answers] : moments)
            EXPECT_EQ(answersTo(controller, commands, at * 1ms), answers) << name << " at " << at;
    }
}

TEST(Controller, HomesToTheEdgeMeant) {
    const std::pair<std::string, std::string> statusAndCounter[] = {
        {"H-", "0;-150"}, {"HL-", "32;0"}, {"L-", "0;0"}, {"ZH-", "0;0"}, {"H+", "144;1500"}};
    for (const auto& [command, there] : statusAndCounter) {
        Controller controller({.layout = {-1000, 1500, -400, 0, 250}});
        EXPECT_EQ(answersTo(controller, "LCA=200;HCA=200;" + command, 0ms), "OK;OK;OK");
        EXPECT_EQ(answersTo(controller, "MST;PX", 60s), there) << command;
    }
}

}  // namespace
}  // namespace zlt::sim
