#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "link/ScreenLink.h"
#include "programs/RunControl.h"

namespace zlt {

/// What one pass found of a program thread.
struct ThreadReading {
    std::string counter;                ///< as it came, Latin-1
    std::optional<ProgramState> state;  ///< nothing: the one shown so far stays
};

/// One pass over both threads.
struct ThreadPass {
    std::array<ThreadReading, 2> threads;
    bool live = false;  ///< whether every question was answered
};

/// Watches and works the controller's two program threads one by one, over a port of its own. A
/// silent controller is asked again and again, with a message each time.
class ThreadWatch : private LinkListener {
 public:
    /// `commLost` is called as soon as an exchange has failed, before any message: what is shown
    /// is no live value then.
    ThreadWatch(const Services& services, const LinkHandOver& handOver,
                std::function<void()> commLost);

    /// Asks for line and state of both threads. Nothing once the loss of the port has been told.
    std::optional<ThreadPass> readPass();
    /// When the next pass is due, from now: after a failure the operator gets time to press a
    /// button, Close above all, and late answers the time to arrive, which are dropped then.
    [[nodiscard]] std::chrono::milliseconds untilNextPass() const;
    /// Nothing is asked any more: the port is lost.
    [[nodiscard]] bool ended() const { return link.lossReported(); }

    /// Whether a run command to a single thread stops the axis as well.
    static bool stopsAxis(RunCommand command);
    /// Sends a run command to thread 0 or 1, and where it is to stop the axis "ABORT" right
    /// after it: what failed is told once both are out.
    void send(int thread, RunCommand command);
    /// Stops the axis, and nothing else.
    void abort();

    ScreenLink link;

 private:
    void commChanged(bool connected) override;
    void exchangeTimedOut() override {}
    void portLost() override {}

    std::function<void()> m_commLost;
};

}  // namespace zlt
