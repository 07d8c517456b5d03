#include "simulator/Simulator.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <iostream>
#include <system_error>
#include <vector>

#include "simulator/Text.h"

namespace zlt::sim {
namespace {

constexpr std::size_t longestLine = 4096;
/// While something moves it is brought up to date now and then, so that nothing piles up.
constexpr Time busyInterval = std::chrono::milliseconds(200);

Time monotonicNow() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

int openSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&set, signal);
    if (::sigprocmask(SIG_BLOCK, &set, nullptr) != 0)
        throw std::system_error(errno, std::generic_category(), "signals");
    ::signal(SIGPIPE, SIG_IGN);
    return ::signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
}

}  // namespace

Simulator::Simulator(const Options& options)
    : m_untilInputCloses(options.untilInputCloses), m_signals(openSignals()) {
    // The default lets waits end 50 microseconds late, half a byte at the highest rate.
    ::prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
    if (!options.logFile.empty())
        m_log.emplace(options.logFile, monotonicNow());
    for (const PortOptions& each : options.ports) {
        Port& port = m_ports.emplace_back(each);
        if (m_log) {
            port.bus().setListener([this, &port](Time when, bool outgoing, std::string_view bytes) {
                m_log->write(when, port.name(), outgoing, bytes);
            });
        }
        port.plug();
    }
}

Simulator::~Simulator() {
    if (m_signals >= 0)
        ::close(m_signals);
}

void Simulator::run() {
    while (!m_ended) {
        for (Port& port : m_ports)
            port.transfer(monotonicNow());
        wait();
    }
}

std::optional<Time> Simulator::nextDue(Time now) {
    std::optional<Time> due;
    for (Port& port : m_ports) {
        auto next = port.nextDue(now);
        if (port.bus().busy()) {
            port.bus().advance(now);
            next = std::min(next.value_or(now + busyInterval), now + busyInterval);
        }
        if (next)
            due = std::min(due.value_or(*next), *next);
    }
    return due;
}

void Simulator::wait() {
    const Time now = monotonicNow();
    std::vector<pollfd> files{{m_signals, POLLIN, 0}, {m_inputOpen ? STDIN_FILENO : -1, POLLIN, 0}};
    for (const Port& port : m_ports) {
        files.push_back({port.listening(now) ? port.terminal().master() : -1, POLLIN, 0});
        files.push_back({port.terminal().watch(), POLLIN, 0});
    }
    timespec timeout{};
    const auto due = nextDue(now);
    if (due) {
        const Time left = std::max(Time{0}, *due - monotonicNow());
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        timeout = {seconds.count(), (left - seconds).count()};
    }
    if (::ppoll(files.data(), files.size(), due ? &timeout : nullptr, nullptr) <= 0)
        return;
    if (files[0].revents != 0)
        m_ended = true;
    if (files[1].revents != 0)
        readInput();
}

void Simulator::readInput() {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0) {
        m_inputOpen = false;
        m_ended = m_ended || m_untilInputCloses;
        return;
    }
    m_input.append(buffer.data(), static_cast<std::size_t>(count));
    for (auto end = m_input.find('\n'); end != std::string::npos && !m_ended;
         end = m_input.find('\n')) {
        const std::string line = m_input.substr(0, end);
        m_input.erase(0, end + 1);
        consoleLine(line);
    }
    if (m_input.size() > longestLine)
        m_input.clear();
}

void Simulator::consoleLine(std::string_view line) {
    auto [word, rest] = firstWord(line);
    if (word.empty() || word == "quit") {
        m_ended = m_ended || !word.empty();
        return;
    }
    if (word == "echo") {
        std::cout << rest << std::endl;
        return;
    }
    const std::string_view name = word;
    const bool one = std::any_of(m_ports.begin(), m_ports.end(),
                                 [&](const Port& port) { return port.name() == name; });
    for (Port& port : m_ports) {
        if (one && port.name() != name)
            continue;
        std::string wrong;
        try {
            wrong = port.command(one ? rest : line, monotonicNow());
        } catch (const std::exception& error) {
            wrong = error.what();
        }
        if (!wrong.empty())
            std::cerr << "zlt-sim: " << line << ": " << wrong << std::endl;
    }
}

}  // namespace zlt::sim
