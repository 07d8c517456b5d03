// The whole program over real pseudo-terminals, as a client meets it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Reads until the text ends with `end` or nothing has come for `milliseconds`.
std::string readUntil(int file, char end, int milliseconds) {
    std::string text;
    char byte = 0;
    pollfd waiting{file, POLLIN, 0};
    while (::poll(&waiting, 1, milliseconds) > 0 && ::read(file, &byte, 1) == 1) {
        text += byte;
        if (byte == end) {
            break;
        }
    }
    return text;
}

class SimulatorProcess : public testing::Test {
 protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "zlt-sim-XXXXXX").string();
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        m_folder = name;
    }
    void TearDown() override {
        end(SIGKILL);
        ::close(m_input);
        ::close(m_output);
        fs::remove_all(m_folder);
    }

    void start(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {ZLT_SIM_PATH, "--link", link()});
        std::array<int, 2> in{};
        std::array<int, 2> out{};
        ASSERT_EQ(::pipe2(in.data(), O_CLOEXEC) + ::pipe2(out.data(), O_CLOEXEC), 0);
        m_process = ::fork();
        if (m_process == 0) {
            ::dup2(in[0], STDIN_FILENO);
            ::dup2(out[1], STDOUT_FILENO);
            std::vector<char*> pointers;
            for (std::string& argument : arguments) {
                pointers.push_back(argument.data());
            }
            pointers.push_back(nullptr);
            ::execv(ZLT_SIM_PATH, pointers.data());
            ::_exit(127);
        }
        ::close(in[0]);
        ::close(out[1]);
        m_input = in[1];
        m_output = out[0];
        const std::string line = readUntil(m_output, '\n', 10000);
        ASSERT_EQ(line, "COM1=" + fs::read_symlink(link()).string() + "\n");
    }

    // Sends the signal and gives the exit code, or minus the signal that ended it.
    int end(int signal) {
        if (m_process <= 0) {
            return 0;
        }
        if (signal != 0) {
            ::kill(m_process, signal);
        }
        int status = 0;
        ::waitpid(m_process, &status, 0);
        m_process = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    void say(const std::string& line) const {
        ASSERT_GT(::write(m_input, (line + "\n").data(), line.size() + 1), 0);
    }

    int openPort(speed_t speed = B9600) const {
        const int file = ::open(link().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios settings{};
        EXPECT_EQ(::tcgetattr(file, &settings), 0);
        ::cfsetspeed(&settings, speed);
        EXPECT_EQ(::tcsetattr(file, TCSANOW, &settings), 0);
        return file;
    }

    static std::string ask(int file, const std::string& request, int milliseconds = 5000) {
        EXPECT_GT(::write(file, (request + "\r").data(), request.size() + 1), 0);
        return readUntil(file, '\r', milliseconds);
    }

    std::string link() const { return (m_folder / "port").string(); }

    fs::path m_folder;
    pid_t m_process = -1;
    int m_input = -1;
    int m_output = -1;
};

TEST_F(SimulatorProcess, answersAtItsOwnRateOnlyAndTakesItsLinkAway) {
    start({"--unpaced"});
    int file = openPort(B19200);
    EXPECT_EQ(ask(file, "@01DN", 200), "");
    ::close(file);
    file = openPort(B9600);
    EXPECT_EQ(ask(file, "@01DN"), "ZLD01\r");
    ::close(file);
    ::close(std::exchange(m_input, -1));
    file = openPort();
    EXPECT_EQ(ask(file, "@01VER"), "V322\r") << "the end of its input does not end it";
    ::close(file);
    EXPECT_EQ(end(SIGTERM), 0);
    EXPECT_FALSE(fs::exists(fs::symlink_status(link())));
}

TEST_F(SimulatorProcess, nothingOfOneClientReachesTheNext) {
    start({"--unpaced", "--fault", "stray left"});
    int file = openPort();
    ASSERT_EQ(::ioctl(file, TIOCEXCL), 0);
    EXPECT_EQ(ask(file, "@01DN"), "ZLD01\r");
    ASSERT_EQ(::write(file, "@01P", 4), 4);
    ::close(file);
    // The departure is noticed a moment later; that the exclusive claim is gone tells when. Until
    // then only root gets the port.
    int claimed = 1;
    for (int i = 0; i < 2000 && claimed != 0; ++i) {
        ::poll(nullptr, 0, 1);
        file = ::open(link().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (file >= 0) {
            ASSERT_EQ(::ioctl(file, TIOCGEXCL, &claimed), 0);
            ::close(file);
        }
    }
    ASSERT_EQ(claimed, 0);
    file = openPort();
    EXPECT_EQ(readUntil(file, '\r', 200), "");
    EXPECT_EQ(ask(file, "@01EO"), "1\r");
    ::close(file);
}

TEST_F(SimulatorProcess, hangsUpAndComesBackUnderTheSameLink) {
    start({"--unpaced"});
    const int file = openPort();
    EXPECT_EQ(ask(file, "@01DN"), "ZLD01\r");
    say("COM1 hangup");
    pollfd waiting{file, POLLIN, 0};
    ASSERT_EQ(::poll(&waiting, 1, 10000), 1);
    EXPECT_NE(waiting.revents & POLLHUP, 0);
    say("plug");
    const std::string line = readUntil(m_output, '\n', 10000);
    EXPECT_EQ(line, "COM1=" + fs::read_symlink(link()).string() + "\n");
    const int again = openPort();
    EXPECT_EQ(ask(again, "@01DN"), "ZLD01\r");
    ::close(again);
    ::close(file);
}

TEST_F(SimulatorProcess, endsWithItsInputWhereAskedAndReplacesAStaleLink) {
    fs::create_symlink("/nowhere", link());
    start({"--until-stdin-closes"});
    ::close(std::exchange(m_input, -1));
    EXPECT_EQ(end(0), 0);
    EXPECT_FALSE(fs::exists(fs::symlink_status(link())));
}

}  // namespace
