// The panel over real pseudo-terminals, against the simulator.

#include <asm/termbits.h>
#include <fcntl.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <cstdarg>

#include "link/Flavour.h"
#include "link/serial/QtSerialPort.h"
#include "support/StartUpWorld.h"

namespace {

/// What the program last asked of a serial driver, seen by standing in front of the library's
/// ioctl().
struct {
    bool knowsSerialSettings = false;  ///< the driver answers, as a pseudo-terminal's does not
    int flagsSet = -1;
    speed_t rateStayedAt = 0;  ///< whatever it is told; 0: it does as told
    int linesSet = 0, linesCleared = 0;
} serialDriver;

}  // namespace

extern "C" int ioctl(int handle, unsigned long request, ...) noexcept {
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (serialDriver.knowsSerialSettings && request == TIOCGSERIAL) {
        static_cast<serial_struct*>(argument)->flags = ASYNC_SKIP_TEST;
        return 0;
    }
    if (serialDriver.knowsSerialSettings && request == TIOCSSERIAL) {
        serialDriver.flagsSet = static_cast<serial_struct*>(argument)->flags;
        return 0;
    }
    if (request == TIOCMBIS)
        serialDriver.linesSet |= *static_cast<int*>(argument);
    if (request == TIOCMBIC)
        serialDriver.linesCleared |= *static_cast<int*>(argument);
    const auto result = static_cast<int>(syscall(SYS_ioctl, handle, request, argument));
    if (request == TCGETS2 && serialDriver.rateStayedAt > 0)
        static_cast<termios2*>(argument)->c_ospeed = serialDriver.rateStayedAt;
    return result;
}

namespace zlt::test {
namespace {

class SystemTest : public StartUpWorld {
 protected:
    bool open(std::string_view baudRate = "9600") { return port.open({1}, baudRate); }
    Reading ask(const char* request) {
        if (!port.write(std::string(request) + "\r"))
            return {Ending::portLost, {}};
        return readReply(port, {});
    }

    QObject owner;
    QtSerialPort port{directory, &owner};
    QSerialPort& serial = *owner.findChild<QSerialPort*>(QStringLiteral("MSComm1"));
};

TEST_F(SystemTest, EndsOnAHangUpWhilePolling) {
    connect([this](QWidget& panel) {
        gate.expectMessage("Communication Error! Input/output error");
        gate.expectMessage(std::string(portNotAvailable));
        simulator.say("hangup");
        EXPECT_TRUE(wait([&] { return !panel.isVisible(); }));
    });
    EXPECT_EQ(programEnd.exitCode(), 1);
    EXPECT_FALSE(startUp.isVisible());
}

TEST_F(SystemTest, HangUpIsALossAndNeverSilence) {
    for (const bool whileWaiting : {false, true}) {
        EXPECT_TRUE(open()) << "the same object, another device";
        EXPECT_EQ(ask("@01DN").text, "ZLD01");
        simulator.say("silent");
        if (whileWaiting)
            port.write("@01PX\r");
        simulator.say("hangup");
        const Reading reading =
            whileWaiting ? readReply(port, {.emptyReadsAllowed = 100'000}) : ask("@01PX");
        EXPECT_EQ(reading.ending, Ending::portLost);
        EXPECT_FALSE(port.isOpen());
        EXPECT_EQ(port.errorText(), "Input/output error");
        for (const char* line : {"plug", "speak"})
            simulator.say(line);
        listPort(simulator.device());
    }
}

TEST_F(SystemTest, OpensWithWholeBaudRatesAndNoOtherSettings) {
    for (const char* rate :
         {"", "0", "-9600", "abc", "9600.5", "9600,E,7,1", "9600,N,8,1", "99999999999"}) {
        EXPECT_FALSE(open(rate)) << rate;
        EXPECT_FALSE(port.isOpen());
        EXPECT_NE(directory.lastOpening({1}).failure, "");
    }
    EXPECT_EQ(directory.lastOpening({1}).failure, "The baud rate is beyond 2147483647");
    EXPECT_TRUE(open());
    EXPECT_EQ(port.errorText() + directory.lastOpening({1}).failure, "");
    EXPECT_EQ(ask("@01DN").text, "ZLD01");
    EXPECT_TRUE(open("19200"));
    EXPECT_EQ(ask("@01DN").ending, Ending::timedOut) << "not the controller's own rate";
}

TEST_F(SystemTest, DropsWhatCameBeforeOpeningAndNothingLater) {
    simulator.say("babble on");
    const int reader = ::open(simulator.device().c_str(), O_RDWR | O_NOCTTY);
    QTest::qSleep(100);
    simulator.say("normal");
    QTest::qSleep(100);
    EXPECT_TRUE(open());
    close(reader);
    EXPECT_EQ(ask("@01DN").text, "ZLD01");

    simulator.say("stray 99");
    EXPECT_EQ(ask("@01PX").text, "0");
    QTest::qSleep(50);
    EXPECT_EQ(ask("@01PX").text, "990") << "late characters head the next reply";
}

TEST_F(SystemTest, WaitsForASlowReplyButNotForASilentOne) {
    EXPECT_TRUE(open());
    simulator.say("drip 80");
    simulator.say("answer DN=ZLD\\xE9");
    EXPECT_EQ(ask("@01DN").text, "ZLD\xE9");
    simulator.say("silent");
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(ask("@01DN").ending, Ending::timedOut);
    EXPECT_GE(time.restart(), 100);
    real.waits.sleep(std::chrono::milliseconds(200));
    EXPECT_GE(time.elapsed(), 200);
}

TEST_F(SystemTest, AsksTheDriverForLowLatencyAndTakesNoForAnAnswer) {
    EXPECT_TRUE(open()) << "a pseudo-terminal refuses";
    serialDriver.knowsSerialSettings = true;
    EXPECT_TRUE(open());
    serialDriver.knowsSerialSettings = false;
    EXPECT_EQ(serialDriver.flagsSet, ASYNC_SKIP_TEST | ASYNC_LOW_LATENCY) << "the rest as it was";
}

TEST_F(SystemTest, OpensWithoutAssertingDtr) {
    serialDriver.linesSet = serialDriver.linesCleared = 0;
    EXPECT_TRUE(open());
    EXPECT_TRUE(serialDriver.linesCleared & TIOCM_DTR);
    EXPECT_FALSE(serialDriver.linesSet & TIOCM_DTR);
}

TEST_F(SystemTest, TellsARateThatTheDriverDoesNotDo) {
    const char* const told = "The adapter works at 9600 instead of 4000000.";
    control<QComboBox>(startUp, "baudCom").setEditText(QStringLiteral("4000000"));
    serialDriver.rateStayedAt = 9600;
    gate.expectMessage("No Communication with device!");
    gate.expectMessage(std::string(portNotAvailable));
    connect([&](QWidget& panel) {
        EXPECT_TRUE(control<QWidget>(panel, "portRemark").isVisible());
        EXPECT_EQ(textOf(panel, "portRemark"), told);
        click(panel, "Command2");
    });
    EXPECT_EQ(textOf(startUp, "portProblem"), told);
    serialDriver.rateStayedAt = 9590;
    choose(startUp, "baudCom", "9600");
    EXPECT_EQ(textOf(startUp, "portProblem"), "") << "it was said of another rate";
    connect([&](QWidget& panel) {
        EXPECT_FALSE(control<QWidget>(panel, "portRemark").isVisible()) << "near enough";
        click(panel, "Command2");
    });
    serialDriver.rateStayedAt = 0;
}

TEST_F(SystemTest, KeepsToTheDeviceThatWasConnected) {
    SimulatedBus another({QStringLiteral("--unpaced")});
    another.say("answer PX=777");
    connect([&](QWidget& panel) {
        clickAndWork(panel, "ManualTerminal", [&](QWidget& terminal) {
            listPort(another.device());
            click(terminal, "Close");
        });
        EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Communication OK");
        tick(panel, "Timer1");
        EXPECT_EQ(textOf(panel, "Pos"), "0");
        click(panel, "Command2");
    });
    connect([&](QWidget& panel) {
        tick(panel, "Timer1");
        EXPECT_EQ(textOf(panel, "Pos"), "777") << "another run, another choice";
        click(panel, "Command2");
    });
}

TEST_F(SystemTest, BoundsWhatALineBabblesAndGivesUpOneThatTakesNothing) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_EQ(grantpt(master) + unlockpt(master), 0);
    listPort(ptsname(master));
    const std::string babble(4000, 'x');
    for (const qint64 unread : {0, 64 * 1024}) {
        EXPECT_TRUE(open());
        for (int turn = 0; turn < 100 && unread > 0; ++turn) {
            (void)!write(master, babble.data(), babble.size());
            QTest::qWait(1);
        }
        EXPECT_EQ(serial.bytesAvailable(), unread) << "nobody reads, and nothing more is kept";
        EXPECT_TRUE(port.write("@01PX\r"));
        bool taken = true;
        for (int request = 0; taken && request < 20; ++request)
            taken = port.write(babble);
        EXPECT_FALSE(taken);
        EXPECT_FALSE(port.isOpen());
    }
    close(master);
}

}  // namespace
}  // namespace zlt::test
