#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "bench/Wire.h"
#include "simulator/PseudoTerminal.h"

namespace zlt::bench {

/// A controller at the far end of a wire: answers each request, and delivers each byte of the
/// reply when a wire of this baud rate would have delivered it, counted from the request's
/// beginning. The controller itself takes no time.
class PacedPeer {
 public:
    /// Gives the reply to a request, both whole lines; runs on the peer's thread.
    using Answers = std::function<std::string(std::string_view request)>;

    /// Answers `request` with `reply`, and nothing else.
    explicit PacedPeer(const Line& line);
    PacedPeer(const Line& line, Answers answers);

    [[nodiscard]] const std::string& device() const { return m_terminal.path(); }
    [[nodiscard]] const Line& line() const { return m_line; }

    /// The client says when its request is under way. The wire starts with the write, not with
    /// the moment at which the peer's thread has woken up: that delay is the test bed's.
    void requestComing() {
        ++m_requests;
        m_writtenAt = 0;
    }
    /// A client of another process cannot say; its requests begin when they are seen.
    void requestsUnannounced() { m_writtenAt = 0; }
    void requestWritten() { m_writtenAt = Clock::now().time_since_epoch().count(); }

    /// For how long bytes have been on the wire so far, either way.
    [[nodiscard]] std::chrono::nanoseconds wireBusy() const {
        return std::chrono::nanoseconds(m_wireBusy);
    }

    /// By how much the last byte of each reply left later than its time, since the last call: the
    /// test bed's share of what the client measures.
    Times takeLateness();

    /// Returns once every request has been answered. Throws when that takes seconds.
    void waitUntilIdle() const;

 private:
    void run(const std::stop_token& stop);
    void answer(std::string_view received, Clock::time_point requestBegin);
    [[nodiscard]] Clock::time_point beginOfRequest(Clock::time_point seen) const;

    const Line m_line;
    const Answers m_answersTo;
    sim::PseudoTerminal m_terminal;
    std::atomic<Clock::rep> m_writtenAt = 0;
    std::atomic<std::chrono::nanoseconds::rep> m_wireBusy = 0;
    std::atomic<long> m_requests = 0;
    std::atomic<long> m_answers = 0;
    std::mutex m_latenessGuard;
    Times m_lateness;
    std::jthread m_thread;  // last: it uses all the others
};

}  // namespace zlt::bench
