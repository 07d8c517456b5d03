// The simulator as a program of its own: its options, ports, links, log and end.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "simulator/Options.h"
#include "support/SimulatedBus.h"

namespace zlt::test {
namespace {

namespace fs = std::filesystem;

/// What comes until the next carriage return, or until nothing comes any more.
std::string heard(int file) {
    std::string text;
    char byte = 0;
    pollfd waiting{file, POLLIN, 0};
    while (byte != '\r' && ::poll(&waiting, 1, 300) > 0 && ::read(file, &byte, 1) == 1)
        text += byte;
    return text;
}

int connectTo(const SimulatedBus& simulator) {
    return ::open(simulator.device().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
}

TEST(SimulatorProgram, KeepsWhatOneClientLeftFromTheNext) {
    SimulatedBus simulator(
        {QStringLiteral("--unpaced"), QStringLiteral("--fault"), QStringLiteral("stray left")});
    int file = connectTo(simulator);
    ASSERT_EQ(::ioctl(file, TIOCEXCL), 0);
    ASSERT_EQ(::write(file, "@01DN\r@01E", 10), 10);
    EXPECT_EQ(heard(file), "ZLD01\r");
    ::close(file);
    // It looks at its port between two lines, so by the second it has seen the client leave.
    simulator.say("");
    simulator.say("");

    file = connectTo(simulator);
    int claimed = 1;
    EXPECT_EQ(::ioctl(file, TIOCGEXCL, &claimed), 0);
    EXPECT_EQ(claimed, 0) << "or only root gets the port";
    ASSERT_EQ(::write(file, "O\r", 2), 2);
    EXPECT_EQ(heard(file), "");
    ASSERT_EQ(::write(file, "@01EO\r", 6), 6);
    EXPECT_EQ(heard(file), "1\r");
    ::close(file);
}

TEST(SimulatorProgram, KeepsItsLinkAndTakesItAwayAtItsEnd) {
    const QTemporaryDir folder;
    const QStringList options{QStringLiteral("--link"), folder.filePath(QStringLiteral("port")),
                              QStringLiteral("--log"), folder.filePath(QStringLiteral("log"))};
    const fs::path link = options[1].toStdString();
    fs::create_symlink("/nowhere", link);
    {
        SimulatedBus simulator(options);
        EXPECT_EQ(fs::read_symlink(link), simulator.device());
        simulator.say("hangup");
        simulator.say("plug");
        EXPECT_EQ(fs::read_symlink(link), simulator.device());
        const int file = connectTo(simulator);
        ASSERT_EQ(::write(file, "@01\xFF\\\r", 6), 6);
        EXPECT_EQ(heard(file), "?.\\\r");
        ::close(file);
    }
    EXPECT_FALSE(fs::exists(fs::symlink_status(link))) << "its input has ended";
    std::ifstream log(options[3].toStdString());
    const std::string traffic(std::istreambuf_iterator<char>(log), {});
    EXPECT_NE(traffic.find(" COM1 < @01\\xFF\\\\\n"), std::string::npos) << traffic;
    EXPECT_NE(traffic.find(" COM1 > ?.\\\\\\r\n"), std::string::npos) << traffic;
}

TEST(Options, BelongToTheLastPortNamed) {
    const auto ports = sim::parseOptions({"--controller", "7,limits=-5:9", "--controller", "id=8",
                                          "--unpaced", "--port", "COM4", "--link", "/x"})
                           .ports;
    ASSERT_EQ(ports.size(), 2U);
    EXPECT_EQ(ports[0].name + ports[1].name, "COM1COM4");
    EXPECT_EQ(ports[0].controllers.at(0).layout.negativeLimit, -5);
    EXPECT_EQ(ports[0].controllers.at(1).id, 8);
    EXPECT_EQ(ports[1].controllers.size(), 1U) << "without a word of any";
    EXPECT_TRUE(!ports[0].paced && ports[1].paced);
    EXPECT_EQ(ports[0].link + ports[1].link, "/x");
    for (const auto& arguments : {std::vector<std::string>{"--nonsense"},
                                  {"--link"},
                                  {"--controller", "id=100"},
                                  {"--controller", "limits=5:-5"}})
        EXPECT_THROW(sim::parseOptions(arguments), std::invalid_argument) << arguments.back();
}

}  // namespace
}  // namespace zlt::test
