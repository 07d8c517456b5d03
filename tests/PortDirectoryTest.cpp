#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "link/PortDirectory.h"
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
    EXPECT_TRUE(world.directory.fromList());

    std::filesystem::remove("zlt-r-485.ports");
    std::filesystem::create_directory("zlt-r-485.ports");
    world.directory.refresh();
    for (PortNumber number{1}; number.value <= portCount; ++number.value)
        EXPECT_EQ(world.directory.device(number), std::nullopt);
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

}  // namespace
}  // namespace zlt::test
