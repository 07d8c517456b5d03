// What controllers say to commands, each at its time.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/Controller.h"

namespace zlt::sim {
namespace {

using namespace std::chrono_literals;

// The answers to commands that are all sent at one moment; both are parted by semicolons.
// "power" is no command but turns the controller off and on, and gives its address and rate;
// "firmware" and a number changes that.
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

const std::pair<std::string, std::vector<Moment>> kConversations[] = {
    {"queries and settings",
     {{0, "DN;VER;ID;HSPD;HSPD=2500;HSPD", "ZLD01;V322;ZLT-R-NX-42;1000;OK;2500"},
      {0, "MS=8;MS=4;MS;ACC=0;POL=32;EX=7;EX", "?MS=8;OK;4;?ACC=0;?POL=32;OK;7"},
      {0, "V31=-5;V31;V32;V01;V1=1,5;LT=1;LTS", "OK;-5;?V32;?V01;?V1=1,5;OK;1"},
      {0, "X5 ;X+-5;X2147483648;hspd;DN=ZLD00;", "?X5 ;?X+-5;?X2147483648;?hspd;?DN=ZLD00;?"},
      {0, "\xFF" + std::string(50, 'x'), "?." + std::string(31, 'x')}}},
    {"commands are known from their firmware on",
     {{0, "firmware 316;MM;DO;SPC;SASTAT;DL=1", ";?MM;?DO;?SPC;?SASTAT;?DL=1"},
      {0, "firmware 317;MM;DO;SPC;SASTAT;DL=1", ";0;0;0;0;OK"},
      {0, "firmware 321;HL+;L-;LCA;HCA=5;DOBOOT", ";?HL+;?L-;?LCA;?HCA=5;?DOBOOT"},
      {0, "SASTAT1;SR1=0;DO=1;DO3;ZH+;ABORT", "?SASTAT1;?SR1=0;OK;0;OK;OK"},
      {0, "firmware 322;LCA;HCA=5;DOBOOT;SASTAT1;SR1=0;L-", ";0;OK;0;0;OK;OK"}}},
    {"a trapezoid that ends exactly on its target",
     {{0, "X1000;X0;POL=1", "OK;?X0;?POL=1"},
      {100, "MST", "3"},
      {300, "PX", "150"},
      {600, "MST;CUR", "1;1000"},
      {1200, "MST", "5"},
      {1320, "MST;PX;EX;CUR", "0;1000;1000;500"}}},
    {"a stop has a ramp, an abort has none",
     {{0, "J-", "OK"},
      {500, "STOP", "OK"},
      {510, "MST", "5"},
      {900, "MST;PX", "0;-500"},
      {1000, "J+", "OK"},
      {1500, "ABORT;MST", "OK;0"},
      {2000, "PX", "-150"}}},
    {"the speed changes on the fly",
     {{0, "SSPD200;J+", "?SSPD200;OK"},
      {1000, "SSPD200", "OK"},
      {2000, "PX", "1146"},
      {3000, "PX", "1346"}}},
    {"a limit ends the move and bars that way until it is cleared or disabled",
     {{0, "J+", "OK"},
      {25000, "PX;MST;J+;X19999", "20000;144;?J+;OK"},
      {26000, "MST;CLR;MST;J+", "128;OK;0;OK"},
      {27000, "MST;DL=1;CLR;X20500", "144;OK;OK;OK"},
      {30000, "PX;MST", "20500;16"}}},
    {"nothing moves without power or speed",
     {{0, "X100", "OK"},
      {50, "EO=0;MST;CUR;Z+", "OK;0;0;?Z+"},
      {50, "EO=1;HSPD=0;J+", "OK;OK;?J+"}}},
    {"incremental moves count from here",
     {{0, "PX=100;INC;MM;X-50", "OK;OK;1;OK"},
      {5000, "PX;X-50;ABS", "50;OK;OK"},
      {10000, "PX;X-50", "0;OK"},
      {15000, "PX;EX", "-50;-150"}}},
    {"the sync output follows the position",
     {{0, "SYNP=10;DO=1;SYNO;DO;PX=10;DO;PX=11;DO", "OK;OK;OK;0;OK;1;OK;0"},
      {0, "SYNC=2;DO;PX=10;DO;PX=9;DO", "OK;0;OK;0;OK;1"},
      {0, "SYNC=3;DO1;PX=10;DO1;PX=11;DO1;SYNF;DO", "OK;0;OK;0;OK;1;OK;1"}}},
    {"only what was stored survives a power cycle",
     {{0, "CURR=700;DN=ZLD07;RT=1;DB=3;STORE;DN;DB", "OK;OK;OK;OK;OK;ZLD01;1"},
      {0, "CURI=900;V15=1;V16=2;X500", "OK;OK;OK;OK"},
      {100, "power;DN;DB;RT;CURR;CURI", "7@38400;ZLD07;3;1;700;500"},
      {100, "V15;V16;MST;PX", "0;2;0;0"}}},
    {"a program runs, pauses, continues and stops",
     {{0, "SAPW1=x;SAPW0=a;SAPW1=;SAPW2=c;SAPN", "?SAPW1=x;OK;OK;OK;3"},
      {0, "SAPR0;SAPR1;SAPR3;SR=3;SR=1", ":a;:;?SAPR3;?SR=3;OK"},
      {45, "SPC;SASTAT;SASTAT1", "2;1;0"},
      {45, "SAPW0=y;SAPC;SR=2", "?SAPW0=y;?SAPC;OK"},
      {10000, "SPC;SASTAT;SR=3", "2;2;OK"},
      {10020, "SPC;SR=0;SASTAT", "0;OK;0"},
      {10020, "power;SAPN;SAPC;SAPN", "1@9600;3;OK;0"}}},
    {"threads have their own parts and ends, and start at power-up as told",
     {{0, "SAPW0=a;SAPW1= END;SAPW2=PRG 1;SAPW3=b;SR=1", "OK;OK;OK;OK;OK"},
      {30, "SPC1", "3"},
      {86'400'000, "SASTAT;SPC;SASTAT1", "0;1;1"},
      {86'400'000, "SLOAD=2;DOBOOT=5;STORE;SR=0", "OK;OK;OK;OK"},
      {86'400'000, "power;SASTAT0;SASTAT1;DO1;DO2;DO3", "1@9600;0;1;1;0;1"}}},
    {"a program without lines is in error until it is mended",
     {{0, "SR=1;SR1=1;SASTAT;SASTAT1", "OK;OK;4;4"}, {0, "CLR;SASTAT;SASTAT1", "OK;0;0"}}},
};

TEST(Controller, holdsConversations) {
    for (const auto& [name, moments] : kConversations) {
        Controller controller({});
        for (const auto& [at, commands, answers] : moments) {
            EXPECT_EQ(answersTo(controller, commands, at * 1ms), answers)
                << name << ": " << commands << " at " << at;
        }
    }
}

TEST(Controller, homesToTheEdgeMeant) {
    struct Row {
        std::string command;
        std::string there;        // status and counter
        std::string toPlusLimit;  // counter at the limit, 1500 pulses from where the axis began
    };
    for (const Row& row : {Row{"H-", "0;-150", "1900"},
                           {"HL-", "32;0", "1900"},
                           {"L-", "0;0", "2300"},
                           {"ZH-", "0;0", "2250"},
                           {"Z+", "0;0", "1250"},
                           {"H+", "144;1500", "1500"}}) {
        Controller controller({.layout = {-1000, 1500, -400, 0, 250}});
        EXPECT_EQ(answersTo(controller, "LCA=200;HCA=200;" + row.command, 0ms), "OK;OK;OK");
        EXPECT_EQ(answersTo(controller, "MST;PX;CLR", 60s), row.there + ";OK") << row.command;
        answersTo(controller, "J+", 60s);
        EXPECT_EQ(answersTo(controller, "PX", 120s), row.toPlusLimit) << row.command;
    }
}

}  // namespace
}  // namespace zlt::sim
