#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "ctl/LineEntry.h"
#include "ctl/SystemConsole.h"
#include "platform/SignalPipe.h"

namespace zlt::ctl {

bool isTerminal(Stream stream) {
    return isatty(static_cast<int>(stream)) == 1;
}

SystemConsole::SystemConsole() : m_signals(catchSignals({SIGTERM, SIGHUP, SIGINT})) {
    signal(SIGPIPE, SIG_IGN);
}

int SystemConsole::signalCaught() {
    unsigned char number = 0;
    if (m_caught == 0 && m_signals >= 0 && read(m_signals, &number, 1) == 1)
        m_caught = number;
    return m_caught;
}

void SystemConsole::pause(std::chrono::milliseconds time) {
    if (signalCaught() != 0)
        return;
    pollfd caught{m_signals, POLLIN, 0};
    poll(&caught, 1, static_cast<int>(time.count()));
}

bool SystemConsole::waitForInput() {
    std::array<pollfd, 2> either{pollfd{STDIN_FILENO, POLLIN, 0}, pollfd{m_signals, POLLIN, 0}};
    while (signalCaught() == 0 && poll(either.data(), either.size(), -1) < 0 && errno == EINTR) {
    }
    return signalCaught() == 0;
}

std::optional<std::string> SystemConsole::readPlainLine() {
    for (;;) {
        if (const auto end = m_input.find('\n'); end != std::string::npos) {
            std::string line = m_input.substr(0, end);
            m_input.erase(0, end + 1);
            if (line.ends_with('\r'))
                line.pop_back();
            return line;
        }
        std::array<char, 4096> bytes{};
        const auto count = waitForInput() ? read(STDIN_FILENO, bytes.data(), bytes.size()) : -1;
        if (count > 0)
            m_input.append(bytes.data(), static_cast<std::size_t>(count));
        else if (count == 0 && !m_input.empty())
            m_input += '\n';  // the last line need not have an end
        else
            return std::nullopt;
    }
}

}  // namespace zlt::ctl
