// Ports that cannot be opened, met from the start-up screen.

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QTest>

#include "faults/StartUpWorld.h"
#include "link/Flavour.h"

namespace zlt::test {
namespace {

class OpeningTest : public StartUpWorld {
 protected:
    /// One message, the words for the port that is not there, no second try; closable.
    void expectRefusal(const char* why) {
        gate.expectMessage(std::string(portNotAvailable));
        connect([&](QWidget& panel) {
            EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Invalid Port") << why;
            EXPECT_FALSE(control<QTimer>(panel, "Timer1").isActive()) << "no storm of retries";
            click(panel, "Command2");
        });
        EXPECT_TRUE(gate.satisfied()) << why;
        EXPECT_TRUE(control<QWidget>(startUp, "portProblem").isVisible()) << why;
        EXPECT_NE(textOf(startUp, "portProblem"), "") << why;
    }
};

TEST_F(OpeningTest, IsRefusedOnceInWordsAndWorksAgainAfterwards) {
    const std::string device = simulator.device();
    const int other = open(device.c_str(), O_RDWR | O_NOCTTY);
    struct Row {
        const char* why;
        std::string device;
        std::function<void()> hold, release;
    };
    QtSerialPort second(directory);
    const auto nothing = [] {};
    const Row table[] = {
        {"no such device", "/dev/no-such-port", nothing, nothing},
        {"no serial device", "/dev/null", nothing, nothing},
        {"a folder", "/tmp", nothing, nothing},
        {"locked by another program", device, [&] { flock(other, LOCK_EX | LOCK_NB); },
         [&] { flock(other, LOCK_UN); }},
        {"opened by another panel", device, [&] { EXPECT_TRUE(second.open({1}, "9600,N,8,1")); },
         [&] {
             EXPECT_EQ(textOf(startUp, "portProblem"),
                       "The last try to open it failed: Device or resource busy.");
             second.close();
         }},
    };
    for (const Row& row : table) {
        listPort(row.device);
        row.hold();
        expectRefusal(row.why);
        row.release();
        listPort(device);
        expectGoodConnection();
    }
    close(other);
}

TEST_F(OpeningTest, IsRefusedForWantOfRights) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root may open any device";
    ASSERT_EQ(chmod(simulator.device().c_str(), 0), 0);
    expectRefusal("no right");
    ASSERT_EQ(chmod(simulator.device().c_str(), 0600), 0);
    expectGoodConnection();
}

TEST_F(OpeningTest, IsRefusedWhileAnotherProgramClaimsTheDevice) {
    if (geteuid() == 0)
        GTEST_SKIP() << "an exclusive claim does not keep root out";
    const int other = open(simulator.device().c_str(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(ioctl(other, TIOCEXCL), 0);
    expectRefusal("claimed");
    ASSERT_EQ(ioctl(other, TIOCNXCL), 0);
    close(other);
    expectGoodConnection();
}

}  // namespace
}  // namespace zlt::test
