#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/BusTalk.h"
#include "link/Port.h"

namespace zlt {

enum class SearchMode {
    firstFound,  ///< ends at the first controller
    all,         ///< goes through everything and lists what it finds
};

/// Shows how the search gets on.
class SearchView {
 public:
    virtual ~SearchView() = default;

    /// What is being tried, told before it blocks.
    virtual void showText(std::string_view text) = 0;
    virtual void showProgress(int value, int maximum) = 0;
    /// The results so far, each time there is one more.
    virtual void showResults(std::string_view results) = 0;
};

/// Looks for controllers on ports 1 to 15, at five baud rates, with device IDs 01 to 09, one
/// step at a time. Nothing is flushed between the probes.
class DeviceSearch {
 public:
    enum class State {
        running,
        over,
        noPort,  ///< over, as no port at all could be opened
    };

    /// All of it outlives the search.
    DeviceSearch(Port& port, BusLog& log, SearchMode mode, SearchView& view);

    /// Makes one step: checks a port, goes to the next one or the next rate, or probes one ID.
    /// Blocks for a probe. The port is closed once the search is not running any more.
    State step();

    /// The next step ends the search.
    void cancel() { m_running = false; }

    /// The controller that ended a search for the first one, in the texts of the start-up screen's
    /// boxes.
    [[nodiscard]] const std::optional<Connection>& found() const { return m_found; }
    /// All that answered, however the search ended.
    [[nodiscard]] const std::vector<Connection>& answered() const { return m_answered; }
    /// The lines of a search for all, each ended by CR LF.
    [[nodiscard]] const std::string& results() const { return m_results; }
    /// The ports that could be opened and went away before they were searched to the end, as an
    /// adapter that is pulled out does: a sentence each. Empty when none did.
    [[nodiscard]] const std::string& losses() const { return m_losses; }

 private:
    enum class Step { checkPort, nextPort, nextBaudRate, probe };

    State makeStep();
    State checkPort();
    State nextPort();
    State nextBaudRate();
    State probe();
    State goToNextPort();
    /// As goToNextPort(), from one that went away.
    State leaveLostPort();
    bool listen();
    [[nodiscard]] Connection here() const;
    [[nodiscard]] bool usable() const;
    void advanceTo(int progress);
    [[nodiscard]] int stillToCome() const;

    Port& m_port;
    BusTalk m_talk;
    SearchMode m_mode;
    SearchView& m_view;
    bool m_running = true;
    Step m_step = Step::checkPort;
    PortNumber m_number{1};
    std::uint32_t m_usablePorts = 0;  ///< bit n-1 for port n
    std::size_t m_ratesTried = 0;     ///< on the present port
    int m_id = 1;
    int m_progress = 0;
    std::optional<Connection> m_found;
    std::vector<Connection> m_answered;
    std::string m_results;
    std::string m_losses;
};

/// The words for a controller: " Baud:9600 ID:01" after the port's number.
std::string searchResultText(const Connection& device);

}  // namespace zlt
