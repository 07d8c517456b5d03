// All that the program needs of the system beside Qt. The other systems' part has no signals to
// heed but Ctrl+C, and no editing but the terminal's own.

#include "ctl/SystemConsole.h"

#include "ctl/LineEntry.h"

#ifndef _WIN32
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/SignalPipe.h"
#else
#include <io.h>

#include <algorithm>
#include <csignal>
#include <iostream>

#include "platform_qt/QtSystem.h"
#endif

namespace zlt::ctl {

#ifndef _WIN32

bool isTerminal(Stream stream) {
    return isatty(static_cast<int>(stream)) == 1;
}

SystemConsole::SystemConsole() : m_signals(catchSignals({SIGTERM, SIGHUP, SIGINT})) {
    signal(SIGPIPE, SIG_IGN);
}

SystemConsole::~SystemConsole() = default;

int SystemConsole::signalCaught() {
    char number = 0;
    if (m_caught == 0 && m_signals >= 0 && read(m_signals, &number, 1) == 1)
        m_caught = number;
    return m_caught;
}

void SystemConsole::pause(std::chrono::milliseconds time) {
    if (signalCaught() != 0)
        return;
    pollfd signals{m_signals, POLLIN, 0};
    poll(&signals, 1, static_cast<int>(time.count()));
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

#else

namespace {

volatile std::sig_atomic_t interruptSeen = 0;

}  // namespace

bool isTerminal(Stream stream) {
    return _isatty(static_cast<int>(stream)) != 0;
}

SystemConsole::SystemConsole() {
    std::signal(SIGINT, [](int number) { interruptSeen = number; });
}

SystemConsole::~SystemConsole() = default;

int SystemConsole::signalCaught() {
    return m_caught = interruptSeen;
}

void SystemConsole::pause(std::chrono::milliseconds time) {
    constexpr std::chrono::milliseconds slice{20};
    ThreadWaits waits;
    for (; time.count() > 0 && signalCaught() == 0; time -= slice)
        waits.sleep(std::min(time, slice));
}

bool SystemConsole::waitForInput() {
    return signalCaught() == 0;
}

std::optional<std::string> SystemConsole::readPlainLine() {
    if (std::getline(std::cin, m_input))
        return m_input;
    return std::nullopt;
}

#endif

std::optional<std::string> SystemConsole::readLine(std::string_view prompt) {
    const bool byHand = !prompt.empty() && isTerminal(Stream::input) && isTerminal(Stream::output);
    if (!byHand)
        return readPlainLine();
    if (!m_entry)
        m_entry = std::make_unique<LineEntry>([this] { return waitForInput(); },
                                              [this] { return readPlainLine(); });
    return m_entry->read(std::string(prompt));
}

}  // namespace zlt::ctl
