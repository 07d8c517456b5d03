#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "link/ScreenLink.h"

namespace zlt {

/// How many variables the standalone programs have, from V0 on.
inline constexpr std::size_t variableCount = 32;

/// What one refresh found.
struct VariableReading {
    std::array<std::string, variableCount> values;  ///< as they came, Latin-1; "0" where not read
    bool live = false;                              ///< whether all of them were read
};

/// Reads the variables V0 to V31 over and over, over a port of its own, until the first failure:
/// that ends the reading for good.
class VariableWatch : private LinkListener {
 public:
    /// `commLost` is called as soon as a query has failed, before any message: what is shown is no
    /// live value then, and note() says why.
    VariableWatch(const Services& services, const LinkHandOver& handOver,
                  std::function<void()> commLost);

    /// Asks for all variables, back to back. Every value is "0" once the reading has stopped.
    VariableReading refresh();
    /// The last refresh brought nothing, and none will.
    [[nodiscard]] bool ended() const { return m_ended; }
    /// Whose values these are, and when the reading has stopped, why and what to do. UTF-8.
    [[nodiscard]] std::string note() const;

    /// Sends a typed command to an address of two digits, whatever became of the reading. The
    /// reply is read and dropped, and nothing is told: what it did shows in the values.
    void send(std::string_view address, std::string_view command);

    ScreenLink link;

 private:
    void commChanged(bool connected) override;
    void exchangeTimedOut() override {}
    void portLost() override {}

    std::function<void()> m_commLost;
    std::string m_lastAsked;  ///< "V7", say; empty before the first query
    bool m_ended = false;
};

}  // namespace zlt
