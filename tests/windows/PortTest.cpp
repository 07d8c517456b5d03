// The port on Windows' own calls, against the simulator.

#include <windows.h>

#include <QElapsedTimer>

#include "link/Exchange.h"
#include "link/serial/PortObstacle.h"
#include "link/serial/WindowsPort.h"
#include "platform/WindowsText.h"
#include "support/StartUpWorld.h"

namespace zlt::test {
namespace {

TEST(WindowsDirectory, GoesByTheNumbersThatWindowsGives) {
    World world;
    const SerialDevice adapter{R"(\\.\COM3)", "Acme", true, "1:1:A", "A"};
    const SerialDevice another{R"(\\.\COM3)", "Acme", true, "1:1:B", "B"};
    std::vector<SerialDevice> devices{
        adapter, {R"(\\.\COM12)"}, {R"(\\.\COM16)"}, {R"(\\.\CNCA0)"}};
    PortDirectory ports(portListFileName, [&] { return devices; });
    std::ofstream(std::string(portListFileName)) << "COM1=/dev/ttyS0\n";
    ports.refresh();
    EXPECT_FALSE(ports.fromList());
    EXPECT_EQ(ports.device({1}), std::nullopt);
    EXPECT_EQ(ports.device({3}), "COM3");
    EXPECT_EQ(ports.entry({3}).maker, "Acme, serial number A");
    EXPECT_EQ(ports.device({12}), "COM12");
    EXPECT_EQ(ports.device({6}), std::nullopt) << "not by its last character";

    const SettledPort settled(ports, {3});
    EXPECT_TRUE(ports.numberStillMeant({3}));
    devices.front() = another;
    EXPECT_EQ(ports.device({3}), std::nullopt) << "the same number, another adapter";
    EXPECT_FALSE(ports.numberStillMeant({3}));
    devices.front() = adapter;
    EXPECT_EQ(ports.device({3}), "COM3") << "there again";
}

class WindowsPortTest : public StartUpWorld {
 protected:
    Reading ask(const char* request) {
        if (!port->write(std::string(request) + "\r"))
            return {Ending::portLost, {}};
        return readReply(*port, {});
    }

    std::unique_ptr<Port> port = makeSystemPort(directory);
};

TEST_F(WindowsPortTest, OpensWithWholeBaudRatesAndKeepsToThem) {
    for (const char* rate : {"", "0", "-9600", "abc", "9600.5", "9600,N,8,1", "99999999999"}) {
        EXPECT_FALSE(port->open({1}, rate)) << rate;
        EXPECT_NE(directory.lastOpening({1}).failure, "");
    }
    EXPECT_TRUE(port->open({1}, "9600")) << port->errorText();
    EXPECT_EQ(port->errorText() + port->remark() + directory.lastOpening({1}).failure, "");
    EXPECT_EQ(ask("@01DN").text, "ZLD01");
    EXPECT_TRUE(port->open({12}, "19200")) << port->errorText();
    EXPECT_EQ(ask("@01DN").ending, Ending::timedOut) << "not the controller's own rate";
}

// Wine lets two programs open one port, so the words are tried by the error that Windows gives.
TEST(WindowsPortWords, TellInUseFromAbsent) {
    const std::string inUse = "In use by another program; Windows does not tell by which";
    EXPECT_EQ(openingFailure(ERROR_ACCESS_DENIED, "COM3"), inUse);
    EXPECT_EQ(openingFailure(ERROR_SHARING_VIOLATION, "COM3"), inUse);
    EXPECT_EQ(openingFailure(ERROR_FILE_NOT_FOUND, "COM3"), "There is no COM3 now");
    EXPECT_EQ(openingFailure(ERROR_GEN_FAILURE, "COM3"), windowsErrorText(ERROR_GEN_FAILURE));
}

TEST_F(WindowsPortTest, IsRefusedWhileNothingIsThere) {
    EXPECT_FALSE(port->open({9}, "9600"));
    EXPECT_EQ(port->errorText(), "No device stands behind COM9");
    EXPECT_EQ(reportPort(examinePort(directory, {9})).obstacle, Obstacle::nothingThere);
    simulator.say("hangup");
    EXPECT_FALSE(port->open({1}, "9600"));
    EXPECT_FALSE(port->isOpen());
    EXPECT_EQ(reportPort(examinePort(directory, {1})).problem,
              "The last try to open it failed: " + port->errorText() + ".");
    simulator.say("plug");
    EXPECT_TRUE(port->open({1}, "9600")) << port->errorText();
}

TEST_F(WindowsPortTest, HangUpIsALossAndNeverSilence) {
    for (const bool whileWaiting : {false, true}) {
        EXPECT_TRUE(port->open({1}, "9600")) << "the same object, another device";
        EXPECT_EQ(ask("@01DN").text, "ZLD01");
        simulator.say("silent");
        if (whileWaiting)
            port->write("@01PX\r");
        simulator.say("hangup");
        const Reading reading =
            whileWaiting ? readReply(*port, {.emptyReadsAllowed = 10'000}) : ask("@01PX");
        EXPECT_EQ(reading.ending, Ending::portLost);
        EXPECT_FALSE(port->isOpen());
        EXPECT_NE(port->errorText(), "");
        EXPECT_FALSE(port->write("@01PX\r"));
        for (const char* line : {"plug", "speak"})
            simulator.say(line);
    }
}

TEST_F(WindowsPortTest, DropsWhatCameBeforeOpeningAndNothingLater) {
    EXPECT_TRUE(port->open({1}, "9600"));
    simulator.say("stray 99");
    EXPECT_EQ(ask("@01PX").text, "0");
    QTest::qSleep(50);
    EXPECT_EQ(ask("@01PX").text, "990") << "late characters head the next reply";
    QTest::qSleep(50);
    EXPECT_TRUE(port->open({1}, "9600"));
    EXPECT_EQ(ask("@01DN").text, "ZLD01");
}

TEST_F(WindowsPortTest, WaitsAMillisecondForNothingAndNotForACharacter) {
    EXPECT_TRUE(port->open({1}, "9600"));
    QElapsedTimer time;
    time.start();
    for (int read = 0; read < 100; ++read)
        EXPECT_EQ(port->waitForInput(std::chrono::milliseconds(1)), PortInput::nothing);
    EXPECT_GE(time.elapsed(), 90);
    EXPECT_LT(time.elapsed(), 300) << "not by ticks of 16 ms";
    EXPECT_TRUE(port->write("@01DN\r"));
    time.restart();
    EXPECT_EQ(port->waitForInput(std::chrono::seconds(5)), PortInput::character);
    EXPECT_LT(time.elapsed(), 1000);
    char first = 0;
    EXPECT_EQ(port->read(first), PortInput::character);
    EXPECT_EQ(first, 'Z');
}

}  // namespace
}  // namespace zlt::test
