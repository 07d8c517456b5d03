// The panel over real pseudo-terminals, against the simulator.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/serial.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTest>
#include <cstdarg>
#include <ctime>
#include <fstream>

#include "link/Flavour.h"
#include "panel/MainControlForm.h"
#include "support/FormDriver.h"
#include "support/RealWorld.h"
#include "support/SimulatedBus.h"

namespace {

/// What the program last asked of a serial driver, seen by standing in front of the library's
/// ioctl().
struct {
    bool knowsSerialSettings = false;  ///< the driver answers, as a pseudo-terminal's does not
    int flagsSet = -1;
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
    return static_cast<int>(syscall(SYS_ioctl, handle, request, argument));
}

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

/// A world whose ports are real and lead to the simulator.
class SystemTest : public ::testing::Test, public RealWorld {
 protected:
    explicit SystemTest(const QStringList& options = {QStringLiteral("--unpaced")})
        : simulator(options) {
        listPort();
    }
    void listPort() { std::ofstream("zlt-r-485.ports") << "COM1=" << simulator.device() << "\n"; }
    std::unique_ptr<Port> openPort(std::string_view settings = "9600,N,8,1") {
        auto port = std::make_unique<QtSerialPort>(directory);
        EXPECT_TRUE(port->open({1}, settings)) << port->errorText();
        return port;
    }
    Reading ask(Port& port, const char* request) {
        if (!port.write(std::string(request) + "\r"))
            return {Ending::portLost, {}};
        return readReply(port, {});
    }
    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 10'000);
    }

    SimulatedBus simulator;
};

TEST_F(SystemTest, PollsRecoversAndClosesOverARealPort) {
    for (int run = 0; run < 3; ++run) {
        MainControlForm form(real, nullptr);
        form.Form_Load({{1}, "9600", "01"});
        form.show();
        EXPECT_EQ(textOf(form, "Version"), "V322");
        simulator.say("answer PX=4711");
        EXPECT_TRUE(wait([&] { return textOf(form, "Pos") == "4711"; }));
        simulator.say("silent");
        EXPECT_TRUE(wait([&] { return textOf(form, "ComStatusDisplay") == "No Communication"; }));
        simulator.say("normal");
        simulator.say("speak");
        EXPECT_TRUE(wait([&] { return textOf(form, "ComStatusDisplay") == "Communication OK"; }));
        EXPECT_TRUE(wait([&] { return textOf(form, "Pos") == "0"; }));
        click(form, "Command2");
    }
}

TEST_F(SystemTest, EndsOnAHangUpWhilePolling) {
    MainControlForm form(real, nullptr);
    form.Form_Load({{1}, "9600", "01"});
    form.show();
    gate.expectMessage("Communication Error! Input/output error");
    gate.expectMessage(std::string(portNotAvailable));
    simulator.say("hangup");
    EXPECT_TRUE(wait([&] { return programEnd.ended(); }));
    EXPECT_EQ(programEnd.exitCode(), 1);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(SystemTest, SwitchesBetweenTwoControllersOnOneBus) {
    SimulatedBus two({QStringLiteral("--controller"), QStringLiteral("id=1"),
                      QStringLiteral("--controller"), QStringLiteral("id=7,firmware=316,rt=1"),
                      QStringLiteral("--unpaced")});
    std::ofstream("zlt-r-485.ports") << "COM1=" << two.device() << "\n";
    directory.refresh();
    MainControlForm form(real, nullptr);
    form.Form_Load({{1}, "9600", "01"});
    form.show();
    choose(form, "SelectedDeviceID", "07");
    EXPECT_EQ(textOf(form, "Version"), "V316");
    gate.expectMessageWith("VER");
    choose(form, "SelectedDeviceID", "08");
    EXPECT_TRUE(programEnd.ended());
}

TEST_F(SystemTest, HangUpIsALossAndNeverSilence) {
    struct Row {
        const char* when;
        std::function<Reading(Port&)> provoke;
    };
    const Row table[] = {
        {"before the write",
         [&](Port& port) {
             simulator.say("hangup");
             QTest::qSleep(50);
             return ask(port, "@01PX");
         }},
        {"while waiting",
         [&](Port& port) {
             simulator.say("silent");
             simulator.say("drip 40");
             port.write("@01PX\r");
             simulator.say("hangup");
             return readReply(port, {.emptyReadsAllowed = 100'000});
         }},
        {"while idle",
         [&](Port& port) {
             simulator.say("hangup");
             EXPECT_TRUE(wait([&] { return !port.isOpen(); }));
             const std::clock_t before = std::clock();
             QTest::qWait(300);
             EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 20) << "a lost port must not spin";
             return ask(port, "@01PX");
         }},
    };
    for (const Row& row : table) {
        auto port = openPort();
        const Reading reading = row.provoke(*port);
        EXPECT_EQ(reading.ending, Ending::portLost) << row.when;
        EXPECT_TRUE(reading.text.empty());
        EXPECT_FALSE(port->isOpen());
        EXPECT_EQ(port->errorText(), "Input/output error") << row.when;

        simulator.say("plug");
        simulator.say("normal");
        simulator.say("speak");
        listPort();
        directory.refresh();
        EXPECT_TRUE(port->open({1}, "9600,N,8,1")) << "the same object, another device";
        EXPECT_EQ(ask(*port, "@01DN").text, "ZLD01");
    }
}

TEST_F(SystemTest, FailsToOpenWhatItMustNotOpen) {
    const auto opens = [this](const std::string& device, const char* settings) {
        std::ofstream("zlt-r-485.ports") << "COM1=" << device << "\n";
        directory.refresh();
        QtSerialPort port(directory);
        const bool good = port.open({1}, settings);
        EXPECT_EQ(good, port.isOpen());
        EXPECT_EQ(good, port.errorText().empty());
        EXPECT_EQ(directory.lastFailure({1}), port.errorText());
        return good;
    };
    const std::string device = simulator.device();
    EXPECT_TRUE(opens(device, "9600,N,8,1"));
    for (const char* settings : {",N,8,1", "0,N,8,1", "-9600,N,8,1", "abc,N,8,1", "9600.5,N,8,1",
                                 "9600,E,7,1", "9600,N,8,1,N,8,1", "99999999999,N,8,1"})
        EXPECT_FALSE(opens(device, settings)) << settings;
    for (const char* path : {"/dev/no-such-port", "/dev/null", "/tmp", "/etc/passwd"})
        EXPECT_FALSE(opens(path, "9600,N,8,1")) << path;

    const int other = open(device.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
    EXPECT_FALSE(opens(device, "9600,N,8,1")) << "locked by another program";
    ASSERT_EQ(flock(other, LOCK_UN), 0);
    EXPECT_TRUE(opens(device, "9600,N,8,1"));
    close(other);

    {
        std::ofstream("zlt-r-485.ports") << "COM1=" << device << "\nCOM2=link\n";
        ASSERT_EQ(symlink(device.c_str(), "link"), 0);
        directory.refresh();
        QtSerialPort first(directory), second(directory);
        EXPECT_TRUE(first.open({1}, "9600,N,8,1"));
        EXPECT_FALSE(second.open({1}, "9600,N,8,1"));
    }
}

TEST_F(SystemTest, DropsWhatCameBeforeOpeningAndNothingLater) {
    simulator.say("babble on");
    const int reader = open(simulator.device().c_str(), O_RDWR | O_NOCTTY);
    QTest::qSleep(100);
    simulator.say("normal");
    QTest::qSleep(100);
    auto port = openPort();
    close(reader);
    EXPECT_EQ(ask(*port, "@01DN").text, "ZLD01");

    simulator.say("stray 99");
    EXPECT_EQ(ask(*port, "@01PX").text, "0");
    QTest::qSleep(50);
    EXPECT_EQ(ask(*port, "@01PX").text, "990") << "late characters head the next reply";
}

TEST_F(SystemTest, WaitsForASlowReplyButNotForASilentOne) {
    auto port = openPort();
    simulator.say("drip 80");
    EXPECT_EQ(ask(*port, "@01DN").text, "ZLD01");
    simulator.say("drip 0");
    simulator.say("silent");
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(ask(*port, "@01DN").ending, Ending::timedOut);
    EXPECT_GE(time.elapsed(), 100);
    EXPECT_LT(time.elapsed(), 1000);
}

TEST_F(SystemTest, AsksTheDriverForLowLatencyAndTakesNoForAnAnswer) {
    openPort();  // a pseudo-terminal refuses
    serialDriver.knowsSerialSettings = true;
    openPort();
    serialDriver.knowsSerialSettings = false;
    EXPECT_EQ(serialDriver.flagsSet, ASYNC_SKIP_TEST | ASYNC_LOW_LATENCY) << "the rest as it was";
}

TEST_F(SystemTest, SettlesForAsLongAsTheCommandAsks) {
    ScreenLink link(real, flavours::controlPanel, nullptr);
    link.connection = {{1}, "9600", "01"};
    ASSERT_TRUE(link.openPort());
    for (const auto& [command, wait] : {std::pair{"STORE", 200}, {"SR0=0", 200}, {"ZSR", 400}}) {
        QElapsedTimer time;
        time.start();
        link.SendReceive(command);
        EXPECT_GE(time.elapsed(), wait) << command;
        EXPECT_LT(time.elapsed(), wait + 190) << command;
    }
}

TEST_F(SystemTest, HearsAControllerAtItsOwnRateOnly) {
    auto wrong = openPort("19200,N,8,1");
    EXPECT_EQ(ask(*wrong, "@01DN").ending, Ending::timedOut);
    wrong->close();
    EXPECT_EQ(ask(*openPort(), "@01DN").text, "ZLD01");
}

TEST_F(SystemTest, WritesWhileALineBabblesUnread) {
    auto port = openPort();
    simulator.say("babble on");
    const auto unreadFor = [](int milliseconds) { QTest::qWait(milliseconds); };
    unreadFor(1500);
    for (int request = 0; request < 3; ++request)
        EXPECT_TRUE(port->write("@01PX\r")) << port->errorText();
    EXPECT_TRUE(port->isOpen());
}

TEST_F(SystemTest, GivesUpALineThatTakesNoMoreCharacters) {
    int master = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(grantpt(master) + unlockpt(master), 0);
    std::ofstream("zlt-r-485.ports") << "COM1=" << ptsname(master) << "\n";
    directory.refresh();
    auto port = openPort();
    bool taken = true;
    for (int request = 0; taken && request < 20; ++request)
        taken = port->write(std::string(4000, 'x'));
    EXPECT_FALSE(taken);
    EXPECT_FALSE(port->isOpen());
    close(master);
}

}  // namespace
}  // namespace zlt::test
