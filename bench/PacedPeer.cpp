#include "bench/PacedPeer.h"

#include <poll.h>
#include <sched.h>
#include <sys/prctl.h>
#include <time.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace zlt::bench {
namespace {

/// How soon the thread notices that it is to stop.
constexpr int stopNoticedMs = 50;

/// How long a starved peer may take to answer at all.
constexpr std::chrono::seconds patience{5};
/// What a byte takes at the most from the peer's write into the client's input.
constexpr std::chrono::milliseconds deliveryTime{20};

/// A controller keeps time whatever the computer is busy with; so does the peer, where the
/// system lets it. This thread only: the client has the slack and the priority of any program.
void becomePunctual() {
    prctl(PR_SET_TIMERSLACK, 1UL);
    const sched_param lowest{.sched_priority = sched_get_priority_min(SCHED_FIFO)};
    sched_setscheduler(0, SCHED_FIFO, &lowest);
}

/// The steady clock is the system's CLOCK_MONOTONIC here.
void sleepUntil(Clock::time_point time) {
    const auto sinceBoot = time.time_since_epoch();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceBoot);
    const timespec deadline{.tv_sec = seconds.count(), .tv_nsec = (sinceBoot - seconds).count()};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &deadline, nullptr) == EINTR) {
    }
}

}  // namespace

PacedPeer::PacedPeer(const Line& line)
    : PacedPeer(line, [](std::string_view received) {
          return std::string(received == request ? reply : std::string_view());
      }) {}

PacedPeer::PacedPeer(const Line& line, Answers answers)
    : m_line(line), m_answersTo(std::move(answers)) {
    m_terminal.open(line.baud);
    m_thread = std::jthread([this](const std::stop_token& stop) { run(stop); });
}

void PacedPeer::run(const std::stop_token& stop) {
    becomePunctual();
    std::string received;
    Clock::time_point begin;
    while (!stop.stop_requested()) {
        pollfd master{.fd = m_terminal.master(), .events = POLLIN, .revents = 0};
        if (poll(&master, 1, stopNoticedMs) <= 0)
            continue;
        const auto seen = Clock::now();
        if (received.empty())
            begin = beginOfRequest(seen);
        received += m_terminal.read();
        if (!received.ends_with(request.back()))
            continue;
        answer(received, begin);
        received.clear();
    }
}

Clock::time_point PacedPeer::beginOfRequest(Clock::time_point seen) const {
    const Clock::time_point written{Clock::duration(m_writtenAt)};
    // The peer may have woken before the client came back from its write.
    return written == Clock::time_point{} ? seen : std::min(seen, written);
}

void PacedPeer::answer(std::string_view received, Clock::time_point requestBegin) {
    const std::string sent = m_answersTo(received);
    Clock::duration late{};
    if (m_line.paced) {
        std::size_t onWire = received.size();
        for (const char byte : sent) {
            // A byte is there once its stop bit has passed.
            const auto due = requestBegin + wireTime(++onWire, m_line);
            sleepUntil(due);
            late = Clock::now() - due;
            m_terminal.write({&byte, 1});
        }
    } else {
        m_terminal.write(sent);
    }
    m_wireBusy += wireTime(received.size() + sent.size(), m_line).count();
    ++m_answers;
    const std::lock_guard guard(m_latenessGuard);
    m_lateness.push_back(late);
}

Times PacedPeer::takeLateness() {
    const std::lock_guard guard(m_latenessGuard);
    return std::exchange(m_lateness, {});
}

void PacedPeer::waitUntilIdle() const {
    const auto giveUp = Clock::now() + patience;
    while (m_answers != m_requests) {
        if (Clock::now() > giveUp)
            throw std::runtime_error("the peer does not answer");
        sleepUntil(Clock::now() + deliveryTime);
    }
    sleepUntil(Clock::now() + deliveryTime);
}

}  // namespace zlt::bench
