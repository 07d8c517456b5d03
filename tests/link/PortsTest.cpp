// What stands behind a port number, and what in the way.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "link/serial/PortMemory.h"
#include "link/serial/PortObstacle.h"
#include "support/World.h"

namespace zlt::test {
namespace {

TEST(PortList, TakesItsLinesAndSkipsTheRest) {
    const PortList list = parsePortList(
        "\xEF\xBB\xBF"
        "COM1=/dev/bom\r\n# bench\r\n\r\nCOM3=/dev/ttyUSB0\n"
        " COM12\t= /dev/serial/by-id/a=b \rCOM16=/dev/x\ncom4=/dev/x\nCOM5=\nnonsense\n"
        "=/dev/x\nCOM03=/dev/x\nCOM3=ttyS1");
    const std::map<PortNumber, std::string> expected{
        {{1}, "/dev/bom"}, {{3}, "/dev/ttyS1"}, {{4}, "/dev/x"}, {{12}, "/dev/serial/by-id/a=b"}};
    EXPECT_EQ(list.ports, expected);
    EXPECT_EQ(notUnderstoodText(list),
              "Lines 6, 8, 9, 10, 11 of the port list zlt-r-485.ports are not understood.");
    EXPECT_EQ(notUnderstoodText(parsePortList("\nCOM3 /dev/x\n")),
              "Line 2 of the port list zlt-r-485.ports is not understood: \"COM3 /dev/x\"");
    EXPECT_EQ(notUnderstoodText(parsePortList("COM3=x")), "");
}

TEST(PortList, IsTheWholeTruthWhereItExists) {
    World world;
    std::ofstream("zlt-r-485.ports") << "COM2=/dev/nowhere\n";
    EXPECT_EQ(world.directory.device({2}), "/dev/nowhere");
    EXPECT_EQ(world.directory.device({1}), std::nullopt);
    EXPECT_EQ(world.directory.listProblem(), "");

    std::filesystem::remove("zlt-r-485.ports");
    std::filesystem::create_directory("zlt-r-485.ports");
    world.directory.refresh();
    EXPECT_EQ(world.directory.device({2}), std::nullopt);
    EXPECT_EQ(world.directory.listProblem(),
              "The port list zlt-r-485.ports cannot be read: it is no file.");
}

/// A machine whose devices are what the test says.
struct Bench : World {
    std::vector<SerialDevice> devices;
    PortDirectory ports{portListFileName, [this] { return devices; }};
    void plug(std::vector<SerialDevice> now) {
        devices = std::move(now);
        ports.refresh();
    }
    std::string behind(int number) { return ports.device({number}).value_or("nothing"); }
};

const SerialDevice adapterA{"/dev/ttyUSB0", "Acme", true, "1:1: 1-1:1.0", "", "1-1:1.0"};
const SerialDevice adapterB{"/dev/ttyUSB1", "Acme", true, "1:1: 1-2:1.0", "", "1-2:1.0"};
const SerialDevice earlier{"/dev/ttyUSB2", "Zeta", true, "0:1:S 1-3:1.0", "S", "1-3:1.0"};

TEST(SettledPort, StandsForTheOneDeviceWhateverHasItsNumberOrNameByNow) {
    Bench bench;
    bench.plug({adapterA});
    {
        const SettledPort settled(bench.ports, {1});
        EXPECT_TRUE(bench.ports.numberStillMeant({1}));
        bench.plug({adapterA, earlier});
        EXPECT_FALSE(bench.ports.numberStillMeant({1})) << "a tool counts the other one first";
        EXPECT_EQ(bench.behind(1), "/dev/ttyUSB0") << "not the one that is first in order now";
        bench.plug({earlier});
        EXPECT_EQ(bench.behind(1), "nothing");
        EXPECT_FALSE(bench.ports.numberStillMeant({1}));
        SerialDevice another = adapterB;
        another.path = adapterA.path;
        bench.plug({another});
        EXPECT_EQ(bench.behind(1), "nothing") << "the same name, another adapter";
        EXPECT_FALSE(bench.ports.numberStillMeant({1}));
        std::ofstream("zlt-r-485.ports") << "COM1=/dev/other\n";
        bench.plug({adapterA});
        EXPECT_EQ(bench.behind(1), "/dev/ttyUSB0") << "there again";
    }
    EXPECT_EQ(bench.behind(1), "/dev/other");
    {
        const SettledPort settled(bench.ports, {2});
        std::ofstream("zlt-r-485.ports") << "COM2=/dev/other\n";
        bench.plug({});
        EXPECT_EQ(bench.behind(2), "nothing") << "as it was at connect";
    }
}

TEST(SerialDevices, OfOneMakeAreToldApart) {
    SerialDevice numbered = adapterA, clone = adapterB, builtIn{"/dev/ttyS0", "Acme"};
    numbered.serialNumber = "A7";
    EXPECT_EQ(distinction(numbered, {numbered, clone}), "serial number A7");
    EXPECT_EQ(distinction(clone, {numbered, clone}), "USB socket 1-2:1.0");
    clone.serialNumber = "A7";
    EXPECT_EQ(distinction(numbered, {numbered, clone}), "USB socket 1-1:1.0");
    EXPECT_EQ(distinction(builtIn, {builtIn}), "");
    Bench bench;
    bench.plug({adapterA, adapterB});
    EXPECT_EQ(bench.ports.entry({2}).maker, "Acme, USB socket 1-2:1.0");
}

TEST(SerialDevices, AreNamedWithoutAWordTwice) {
    const char* const table[][3] = {{"Acme", "RS485", "Acme RS485"},
                                    {"Acme", "Acme", "Acme"},
                                    {"Acme", "Acme RS485", "Acme RS485"},
                                    {"", "RS485", "RS485"},
                                    {"Acme", "", "Acme"}};
    for (const auto& [manufacturer, description, text] : table)
        EXPECT_EQ(makerText(manufacturer, description), text);
}

TEST(SerialDevices, BuiltInOnesAreThoseWithHardwareWhoeverHoldsThem) {
    const QTemporaryDir folder;
    const std::filesystem::path root = folder.path().toStdString();
    for (const auto& [name, type] : {std::pair("ttyS0", "4\n"), {"ttyS1", "0\n"}, {"tty0", ""}}) {
        std::filesystem::create_directory(root / name);
        if (*type != '\0')
            std::ofstream(root / name / "type") << type;
    }
    EXPECT_EQ(builtInPorts(root), std::vector<std::string>{"ttyS0"});
}

TEST(PortMemory, TellsWhenAnotherAdapterStandsBehindThePort) {
    Bench bench;
    const auto said = [&] {
        return PortMemory(bench.files, bench.services.dataFolder / "new")
            .change({1}, bench.ports.entry({1}));
    };
    const auto connect = [&] {
        PortMemory(bench.files, bench.services.dataFolder / "new")
            .remember({1}, bench.ports.entry({1}));
    };
    bench.plug({adapterA, adapterB});
    EXPECT_EQ(said(), "") << "never connected";
    connect();
    EXPECT_EQ(said(), "");
    bench.plug({adapterB});
    EXPECT_EQ(said(), "COM1 was another one last time: Acme, USB socket 1-1:1.0.");
    connect();
    EXPECT_EQ(said(), "");
    std::filesystem::create_directory("elsewhere");
    std::filesystem::current_path("elsewhere");
    bench.plug({adapterA});
    EXPECT_EQ(said(), "") << "another folder, another list";
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
        {[](PortFindings& f) { f.mayOpen = false; }, "until the computer starts anew",
         "sudo setfacl -m u:kim:rw '/dev/ttyUSB0'"},
        {[](PortFindings& f) { f.mayOpen = false, f.entry.usb = true; }, "until it is unplugged",
         "sudo setfacl -m u:kim:rw '/dev/ttyUSB0'"},
        {[](PortFindings& f) {
             f.users = {{"minicom", 12}, {"", 34}};
         },
         "In use by minicom (process 12), process 34", ""},
        {[](PortFindings& f) { f.deadLock = "/var/lock/LCK..ttyUSB0"; }, "A program that is gone",
         "sudo rm '/var/lock/LCK..ttyUSB0'"},
        {[](PortFindings& f) { f.last.failure = "Device or resource busy"; },
         "Device or resource busy", ""},
        {[](PortFindings& f) { f.last.remark = "It works at 9600."; }, "It works at 9600.", ""},
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

TEST(PortReport, NamesTheDeviceButNotByThePortsOwnName) {
    const std::pair<PortEntry, const char*> table[] = {
        {{"/dev/ttyUSB0", "Acme"}, "/dev/ttyUSB0 \xE2\x80\x93 Acme"},
        {{"/dev/ttyS0", ""}, "/dev/ttyS0"},
        {{"COM3", "Acme RS485"}, "Acme RS485"},
        {{"COM3", ""}, "a serial port of this computer"}};
    for (const auto& [entry, words] : table) {
        PortFindings findings;
        findings.number = {3};
        findings.entry = entry;
        EXPECT_EQ(reportPort(findings).device, words);
    }
}

}  // namespace
}  // namespace zlt::test
