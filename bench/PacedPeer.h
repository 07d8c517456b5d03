#pragma once

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "bench/Wire.h"
#include "simulator/PseudoTerminal.h"

namespace zlt::bench {

/// A controller at the far end of a wire: answers the one request, and delivers each byte of
/// the reply when a wire of this baud rate would have delivered it, counted from the request's
/// beginning. The controller itself takes no time.
class PacedPeer {
 public:
    explicit PacedPeer(long baud);

    const std::string& device() const { return m_terminal.path(); }

    /// The client says when its request is under way. The wire starts with the write, not with
    /// the moment at which the peer's thread has woken up: that delay is the test bed's.
    void requestComing() {
        ++m_requests;
        m_writtenAt = 0;
    }
    void requestWritten() { m_writtenAt = Clock::now().time_since_epoch().count(); }

    /// By how much the last byte of the last reply left behind its time: the test bed's share
    /// of what the client measures.
    std::chrono::nanoseconds lateBy() const { return std::chrono::nanoseconds(m_lateBy); }

    /// Returns once every request has been answered. Throws when that takes seconds.
    void waitUntilIdle() const;

 private:
    void run(const std::stop_token& stop);
    void answer(Clock::time_point requestBegin);
    Clock::time_point beginOfRequest(Clock::time_point seen) const;

    const long m_baud;
    sim::PseudoTerminal m_terminal;
    std::atomic<Clock::rep> m_writtenAt = 0;
    std::atomic<std::chrono::nanoseconds::rep> m_lateBy = 0;
    std::atomic<long> m_requests = 0;
    std::atomic<long> m_answers = 0;
    std::jthread m_thread;  // last: it uses all the others
};

}  // namespace zlt::bench
