// Ports that cannot be opened and adapters that are pulled out, met from the start-up screen.

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <QLockFile>
#include <QProcess>
#include <filesystem>

#include "link/Flavour.h"
#include "link/serial/PortObstacle.h"
#include "support/StartUpWorld.h"

namespace zlt::test {
namespace {

class PortFaultsTest : public StartUpWorld {
 protected:
    struct Obstacle {
        const char* why;
        std::string device;
        const char* words;  ///< of the note below the port
        std::function<void()> raise = {}, remove = {};
    };
    /// One message, the note's words, no second try; closable, and good again afterwards.
    void expectRefusal(const Obstacle& obstacle) {
        SCOPED_TRACE(obstacle.why);
        listPort(obstacle.device);
        if (obstacle.raise)
            obstacle.raise();
        gate.expectMessage(std::string(portNotAvailable));
        connect([&](QWidget& panel) {
            EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Invalid Port");
            EXPECT_EQ(shownOn(panel, "Timer1"), "off") << "no storm of retries";
            click(panel, "Command2");
        });
        EXPECT_NE(textOf(startUp, "portProblem").find(obstacle.words), std::string::npos)
            << textOf(startUp, "portProblem");
        if (obstacle.remove) {
            obstacle.remove();
            tick(startUp, "portTimer");
            EXPECT_EQ(textOf(startUp, "portProblem"), "") << "its reason is gone";
        }
        listPort(device);
        expectGoodConnection();
    }

    /// The one that programs of this kind agree on.
    [[nodiscard]] std::string lockFile() const {
        const auto name = std::filesystem::path(simulator.device()).filename().string();
        return "/var/lock/LCK..pts_" + name;
    }

    const std::string device = simulator.device();
};

using OpeningTest = PortFaultsTest;

TEST_F(OpeningTest, IsRefusedOnceInWordsAndWorksAgainAfterwards) {
    std::filesystem::create_symlink(device, "link");
    QLockFile claim(QString::fromStdString(lockFile()));
    QProcess other;
    const auto lock = [&] {
        other.start(QStringLiteral("flock"),
                    {QStringLiteral("-F"), QString::fromStdString(device), QStringLiteral("sh"),
                     QStringLiteral("-c"), QStringLiteral("echo locked; exec cat")});
        EXPECT_TRUE(other.waitForReadyRead());
    };
    const auto unlock = [&] {
        other.closeWriteChannel();
        EXPECT_TRUE(other.waitForFinished());
    };
    const Obstacle table[] = {
        {"no such device", "/dev/no-such-port", "no such device"},
        {"no serial device", "/dev/null", "not a serial port"},
        {"a folder", "/tmp", "not a serial port"},
        {"locked by another program", device, "In use by cat (process ", lock, unlock},
        {"claimed by a lock file, by another name", "./link",
         "The last try to open it failed: Device or resource busy.",
         [&] { EXPECT_TRUE(claim.tryLock()); }, [&] { claim.unlock(); }},
    };
    for (const Obstacle& obstacle : table)
        expectRefusal(obstacle);
}

TEST_F(OpeningTest, IsRefusedForWantOfRights) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root may open any device, claimed by another program or not";
    const int other = open(device.c_str(), O_RDWR | O_NOCTTY);
    const Obstacle table[] = {
        {"no right", device, "You may not open it", [&] { chmod(device.c_str(), 0); },
         [&] { chmod(device.c_str(), 0600); }},
        {"claimed", device, "Device or resource busy", [&] { ioctl(other, TIOCEXCL); },
         [&] { ioctl(other, TIOCNXCL); }}};
    for (const Obstacle& obstacle : table)
        expectRefusal(obstacle);
    close(other);
}

/// Another program with the line at 57600 baud and two stop bits, held in one way.
class OtherProgram {
 public:
    enum class Lock { flock, exclusive, lockFile };

    OtherProgram(const std::string& device, const std::string& lockFile, Lock lock) {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        m_process = fork();
        if (m_process == 0) {
            const int line = open(device.c_str(), O_RDWR | O_NOCTTY);
            hold(line, lockFile, lock);
            (void)!write(ready[1], "!", 1);
            for (;;)
                pause();
        }
        char there = 0;
        EXPECT_EQ(read(ready[0], &there, 1), 1);
        close(ready[0]);
        close(ready[1]);
    }
    ~OtherProgram() {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }

 private:
    static void hold(int line, const std::string& lockFile, Lock lock) {
        termios settings{};
        tcgetattr(line, &settings);
        settings.c_cflag |= CSTOPB;  // a pseudo-terminal takes no other data bits or parity
        cfsetspeed(&settings, B57600);
        tcsetattr(line, TCSANOW, &settings);
        if (lock == Lock::flock)
            flock(line, LOCK_EX);
        else if (lock == Lock::exclusive)
            ioctl(line, TIOCEXCL);
        else
            std::ofstream(lockFile) << "      " << getpid() << "\n";
    }

    pid_t m_process = 0;
};

TEST_F(OpeningTest, LeavesALineAloneThatAnotherProgramHolds) {
    using Lock = OtherProgram::Lock;
    const int line = open(device.c_str(), O_RDWR | O_NOCTTY);
    for (const Lock lock : {Lock::flock, Lock::exclusive, Lock::lockFile}) {
        SCOPED_TRACE(static_cast<int>(lock));
        const OtherProgram other(device, lockFile(), lock);
        const auto port = real.makePort();
        EXPECT_FALSE(port->open({1}, "9600"));
        EXPECT_EQ(port->errorText(), "Device or resource busy");
        termios settings{};
        tcgetattr(line, &settings);
        EXPECT_EQ(cfgetospeed(&settings), speed_t{B57600});
        EXPECT_TRUE(settings.c_cflag & CSTOPB);
        ioctl(line, TIOCNXCL);
    }
    close(line);
    EXPECT_TRUE(std::filesystem::exists(lockFile())) << "left behind by a program that was killed";
    EXPECT_EQ(reportPort(examinePort(directory, {1})).problem, "") << "it may be taken over";
    expectGoodConnection();
}

TEST_F(OpeningTest, NamesALockFileThatAnotherUsersProgramLeft) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be two users";
    const pid_t gone = fork();
    if (gone == 0)
        _exit(0);
    waitpid(gone, nullptr, 0);
    std::ofstream(lockFile()) << gone << "\n";
    chmod(device.c_str(), 0666);
    const pid_t otherUser = fork();
    if (otherUser == 0) {
        constexpr uid_t nobody = 65534;
        if (setgid(nobody) != 0 || setuid(nobody) != 0)
            _exit(2);
        const PortReport report = reportPort(examinePort(directory, {1}));
        const bool told = report.obstacle == ::zlt::Obstacle::deadLock &&
                          report.command == "sudo rm '" + lockFile() + "'";
        _exit(told && !real.makePort()->open({1}, "9600") ? 0 : 1);
    }
    int outcome = -1;
    waitpid(otherUser, &outcome, 0);
    EXPECT_EQ(outcome, 0);
    expectGoodConnection();  // root may take it over
}

using HangUpTest = PortFaultsTest;

TEST_F(HangUpTest, OnAnotherScreenIsToldAtTheNextExchangeAndEndsNothing) {
    const auto upload = [this](QWidget& screen) {
        click(screen, "DownloadPar");
        gate.expectMessage("Communication port not open!");
        click(screen, "UploadPar");
    };
    const auto sendByHand = [](QWidget& screen) {
        for (int turn = 0; turn < 2; ++turn) {
            QTest::keyClicks(&control<QWidget>(screen, "SendText"), QStringLiteral("PX"));
            press(screen, "SendText", Qt::Key_Return);
        }
        const QString pad = control<QWidget>(screen, "Pad").property("plainText").toString();
        EXPECT_EQ(pad.count(QStringLiteral("Com Port Error")), 2);
    };
    struct Row {
        const char* button;
        const char* message;  ///< of the next exchange; null for none
        Work exchange;        ///< of a screen without poll
    };
    const Row table[] = {{"Setup", "Communication port not open!", upload},
                         {"ManualTerminal", nullptr, sendByHand},
                         {"Variable", "No Reply to Command: ", {}},
                         {"XThread", "Communication port not open!", {}}};
    for (const Row& row : table) {
        SCOPED_TRACE(row.button);
        connect([&](QWidget& panel) {
            clickAndWork(panel, row.button, [&](QWidget& screen) {
                QTest::qWait(20);
                if (row.message)
                    gate.expectMessageWith(row.message);
                simulator.say("hangup");
                expectIdle();
                if (row.exchange)
                    row.exchange(screen);
                EXPECT_TRUE(wait([&] { return gate.satisfied(); }));
                expectIdle();
                gate.expectMessage(std::string(portNotAvailable));
                screen.close();
            });
            EXPECT_TRUE(gate.satisfied()) << "the port does not come back to the panel";
            EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Invalid Port");
            expectIdle();
            click(panel, "Command2");
        });
        simulator.say("plug");
        listPort(simulator.device());
        expectGoodConnection();
    }
}

TEST_F(HangUpTest, ClosingDuringTrafficReleasesThePort) {
    for (int milliseconds = 0; milliseconds < 40; milliseconds += 10) {
        connect([&](QWidget& panel) {
            EXPECT_TRUE(std::filesystem::exists(lockFile()));
            QTest::qWait(milliseconds);
            panel.close();
        });
        EXPECT_FALSE(std::filesystem::exists(lockFile()));
    }
}

}  // namespace
}  // namespace zlt::test
