// What stands behind a port number, and what in the way.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "link/serial/PortObstacle.h"
#include "support/World.h"

namespace zlt::test {
namespace {

TEST(PortList, TakesItsLinesAndSkipsTheRest) {
    const auto ports = parsePortList(
        "# bench\r\n\r\nCOM3=/dev/ttyUSB0\n COM12 = /dev/serial/by-id/a=b \rCOM16=/dev/x\n"
        "com4=/dev/x\nCOM5=\nnonsense\n=/dev/x\nCOM03=/dev/x\nCOM3=ttyS1");
    const std::map<PortNumber, std::string> expected{{{3}, "/dev/ttyS1"},
                                                     {{12}, "/dev/serial/by-id/a=b"}};
    EXPECT_EQ(ports, expected);
}

TEST(PortList, IsTheWholeTruthWhereItExists) {
    World world;
    std::ofstream("zlt-r-485.ports") << "COM2=/dev/nowhere\n";
    EXPECT_EQ(world.directory.device({2}), "/dev/nowhere");
    EXPECT_EQ(world.directory.device({1}), std::nullopt);

    std::filesystem::remove("zlt-r-485.ports");
    std::filesystem::create_directory("zlt-r-485.ports");
    world.directory.refresh();
    EXPECT_EQ(world.directory.device({2}), std::nullopt);
}

TEST(SerialDevices, AreOrderedBuiltInFirstThenByAdapter) {
    std::vector<SerialDevice> devices{{"/dev/ttyUSB1", "", true, "0403:6001:B"},
                                      {"/dev/ttyS10", "", false, ""},
                                      {"/dev/ttyACM0", "", true, "2341:0043:"},
                                      {"/dev/ttyUSB10", "", true, "0403:6001:A"},
                                      {"/dev/ttyS4", "", false, ""},
                                      {"/dev/ttyUSB0", "", true, "0403:6001:B"}};
    orderDevices(devices);
    std::string order;
    for (const SerialDevice& device : devices)
        order += device.path.substr(8) + " ";
    EXPECT_EQ(order, "S4 S10 USB10 USB0 USB1 ACM0 ");
}

TEST(PortReport, TellsTheObstaclesApart) {
    struct Row {
        void (*change)(PortFindings&);
        const char *words, *command;
    };
    const Row table[] = {
        {[](PortFindings&) {}, "", ""},
        {[](PortFindings& f) { f.entry = {}; }, "COM3 stands for no", ""},
        {[](PortFindings& f) { f.entry = {}, f.fromList = true; },
         "COM3 is not in the port list zlt-r-485.ports", ""},
        {[](PortFindings& f) { f.exists = f.mayOpen = false; }, "no such device", ""},
        {[](PortFindings& f) { f.serial = false; }, "not a serial port", ""},
        {[](PortFindings& f) { f.mayOpen = false, f.group = "uucp"; }, "group uucp",
         "sudo usermod -a -G uucp kim"},
        {[](PortFindings& f) { f.mayOpen = false, f.group = "uucp", f.inGroupAlready = true; },
         "Log out and in again", ""},
        {[](PortFindings& f) { f.mayOpen = false; }, "You may not open it",
         "sudo setfacl -m u:kim:rw '/dev/ttyUSB0'"},
        {[](PortFindings& f) {
             f.users = {{"minicom", 12}, {"", 34}};
         },
         "In use by minicom (process 12), process 34", ""},
        {[](PortFindings& f) { f.lastFailure = "Device or resource busy"; },
         "Device or resource busy", ""},
    };
    for (const auto& [change, words, command] : table) {
        PortFindings findings;
        findings.number = {3};
        findings.entry = {"/dev/ttyUSB0", "Acme"};
        findings.exists = findings.serial = findings.mayOpen = true;
        findings.user = "kim";
        change(findings);
        const PortReport report = reportPort(findings);
        EXPECT_NE(report.problem.find(words), std::string::npos) << report.problem;
        EXPECT_EQ(report.problem.empty(), *words == '\0') << report.problem;
        EXPECT_EQ(report.command, command);
    }
}

}  // namespace
}  // namespace zlt::test
