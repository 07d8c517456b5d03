#pragma once

#include <optional>
#include <string>

#include "simulator/Bus.h"
#include "simulator/Options.h"
#include "simulator/PseudoTerminal.h"

namespace zlt::sim {

/// A bus on its pseudo-terminal, with its link.
class Port {
 public:
    explicit Port(const PortOptions& options);

    /// Makes a new pseudo-terminal, points the link to it and prints its path. Throws
    /// std::system_error.
    void plug();
    void hangUp() { m_terminal.hangUp(); }
    /// Moves bytes both ways: what has come and what is due.
    void transfer(Time now);
    /// When to call `transfer` at the latest, should nothing arrive before; nothing: no need to.
    [[nodiscard]] std::optional<Time> nextDue(Time now) const;
    /// Whether bytes that arrive should wake the program.
    [[nodiscard]] bool listening(Time now) const;

    /// Carries out a console line without the port's name. Gives an empty text, or what is wrong.
    std::string command(std::string_view line, Time now);

    [[nodiscard]] const std::string& name() const { return m_name; }
    [[nodiscard]] Bus& bus() { return m_bus; }
    [[nodiscard]] const PseudoTerminal& terminal() const { return m_terminal; }

 private:
    std::string powerCycle(std::string_view rest, Time now);
    std::string changeId(std::string_view rest);
    std::string changeFirmware(std::string_view rest);
    Controller* find(std::string_view id);

    std::string m_name;
    Bus m_bus;
    PseudoTerminal m_terminal;
    std::optional<PortLink> m_link;
};

}  // namespace zlt::sim
