#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/Options.h"
#include "simulator/Port.h"
#include "simulator/TrafficLog.h"

namespace zlt::sim {

/// The whole program: its ports, its console and the loop that waits for either.
class Simulator {
 public:
    /// Makes the ports and prints their paths. Throws std::system_error or std::invalid_argument.
    explicit Simulator(const Options& options);
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    /// Serves until it is told to end: by SIGINT, SIGTERM, SIGHUP, "quit", or the end of standard
    /// input where that was asked for.
    void run();

 private:
    void wait();
    std::optional<Time> nextDue(Time now);
    void readInput();
    void consoleLine(std::string_view line);

    std::deque<Port> m_ports;  ///< a deque: a port stays where it was made
    std::optional<TrafficLog> m_log;
    bool m_untilInputCloses;
    bool m_inputOpen = true;
    bool m_ended = false;
    int m_signals = -1;
    std::string m_input;
};

}  // namespace zlt::sim
