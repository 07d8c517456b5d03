// The panel itself, a process on its own, told by a signal to end. It is worked by keys over VNC.

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "app/EndOnSignal.h"
#include "platform_qt/forms/QtGate.h"
#include "support/SimulatedBus.h"

namespace zlt::test {
namespace {

sockaddr_in localAddress(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

int freeTcpPort() {
    const int probe = socket(AF_INET, SOCK_STREAM, 0);
    auto address = localAddress(0);
    socklen_t size = sizeof address;
    (void)bind(probe, reinterpret_cast<sockaddr*>(&address), size);
    getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size);
    close(probe);
    return ntohs(address.sin_port);
}

/// The keys of a VNC viewer, by RFC 6143.
class Keyboard {
 public:
    explicit Keyboard(int tcpPort) {
        const auto address = localAddress(tcpPort);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                m_viewer = socket(AF_INET, SOCK_STREAM, 0);
                if (::connect(m_viewer, reinterpret_cast<const sockaddr*>(&address),
                              sizeof address) == 0)
                    return true;
                close(m_viewer);
                return false;
            },
            20'000));
        receive(12);
        send("RFB 003.003\n");
        receive(4);
        send(std::string(1, '\1'));
        receive(20);
    }
    ~Keyboard() { close(m_viewer); }

    void type(std::initializer_list<int> keySymbols) {
        for (const int key : keySymbols)
            for (const char down : {'\1', '\0'})
                send({'\4', down, 0, 0, 0, 0, static_cast<char>(key >> 8),
                      static_cast<char>(key & 0xff)});
    }

 private:
    void send(const std::string& bytes) {
        EXPECT_EQ(::send(m_viewer, bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }
    void receive(std::size_t count) {
        std::string bytes(count, '\0');
        EXPECT_EQ(recv(m_viewer, bytes.data(), count, MSG_WAITALL), static_cast<ssize_t>(count));
    }

    int m_viewer = -1;
};

class EndBySignalTest : public ::testing::Test {
 protected:
    static constexpr int tab = 0xff09, space = ' ';

    EndBySignalTest() {
        std::ofstream(folder.filePath(QStringLiteral("zlt-r-485.ports")).toStdString())
            << "COM1=" << simulator.device() << "\n";
    }
    /// Starts the panel, connects it if wanted, sends the signal and expects an end in order.
    void expectEnd(int number, bool connected, int millisecondsLater) {
        SCOPED_TRACE(std::to_string(number) + " after " + std::to_string(millisecondsLater));
        const int tcpPort = freeTcpPort();
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                           QStringLiteral("vnc:size=1200x800:port=%1").arg(tcpPort));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.path());
        QProcess panel;
        panel.setProcessEnvironment(environment);
        panel.setWorkingDirectory(folder.path());
        panel.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        panel.start(QStringLiteral(ZLT_PANEL_PATH), QStringList());
        Keyboard keyboard(tcpPort);
        if (connected) {
            keyboard.type({tab, tab, tab, space});
            EXPECT_TRUE(
                QTest::qWaitFor([&] { return std::filesystem::exists(lockFile()); }, 10'000));
        }
        QTest::qWait(millisecondsLater);
        kill(static_cast<pid_t>(panel.processId()), number);
        EXPECT_TRUE(panel.waitForFinished(10'000));
        EXPECT_EQ(panel.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(panel.exitCode(), 128 + number);
        EXPECT_FALSE(std::filesystem::exists(lockFile()));
    }
    [[nodiscard]] std::string lockFile() const {
        return "/var/lock/LCK..pts_" +
               std::filesystem::path(simulator.device()).filename().string();
    }

    QTemporaryDir folder;
    SimulatedBus simulator;
};

TEST_F(EndBySignalTest, LetsThePortGoWhateverIsOnTheScreen) {
    expectEnd(SIGINT, false, 0);
    for (const auto& [number, later] : {std::pair(SIGTERM, 0), {SIGHUP, 20}, {SIGINT, 300}})
        expectEnd(number, true, later);
    simulator.say("silent");
    expectEnd(SIGTERM, true, 500);  // the message that nobody answers is up
}

TEST(EndOnSignalTest, LeavesAFileDialogUnderAQuestionOfItsOwn) {
    ProgramEnd programEnd;
    const EndOnSignal endOnSignal(programEnd);
    QtGate boxes;
    EndingGate gate(boxes, programEnd);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a.prg"));
    std::ofstream(file.toStdString()) << "old";
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        QTimer::singleShot(0, dialog, [] {
            EXPECT_TRUE(qobject_cast<QMessageBox*>(QApplication::activeModalWidget()));
            raise(SIGTERM);
        });
        QTimer::singleShot(5000, dialog, [dialog] {
            ADD_FAILURE() << "it stands on";
            dialog->reject();
        });
        dialog->findChild<QLineEdit*>()->setText(file);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    EXPECT_THROW(gate.chooseToSave({"Save", "Programs (*.prg)|*.prg", ""}), ProgramEnd::Unwind);
    EXPECT_EQ(programEnd.exitCode(), 128 + SIGTERM);
}

TEST(EndOnSignalTest, KeepsWhatIsNotSavedWhenQtLeavesByExit) {
    const auto loseTheDisplay = [] {
        ProgramEnd programEnd;
        programEnd.keepUnsaved = [] { std::cerr << "kept"; };
        const EndOnSignal endOnSignal(programEnd);
        std::exit(1);  // NOLINT(concurrency-mt-unsafe): as Qt does
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // Qt has threads
    EXPECT_EXIT(loseTheDisplay(), ::testing::ExitedWithCode(1), "kept");
}

}  // namespace
}  // namespace zlt::test
