#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "simulator/Axis.h"

namespace zlt::sim {

class Controller;

/// The command vocabulary: tables of command, oldest firmware that knows it, and what it does.
struct Commands {
    using Answer = std::optional<std::string>;  ///< empty: refused

    /// A command that is one fixed text.
    struct Plain {
        std::string_view text;
        int firmware;
        Answer (*act)(Controller&);
    };
    /// A command that is a text followed by a whole number.
    struct Numbered {
        std::string_view text;
        int firmware;
        std::int64_t lowest;
        std::int64_t highest;
        Answer (*act)(Controller&, std::int64_t);
    };

    /// Carries out one command, without its framing.
    static Answer execute(Controller& controller, std::string_view command);

 private:
    static Answer plain(Controller& controller, std::string_view command);
    static Answer numbered(Controller& controller, std::string_view command);
    static Answer parameter(Controller& controller, std::string_view command);
    static Answer variable(Controller& controller, std::string_view command);
    static Answer deviceName(Controller& controller, std::string_view command);
    static Answer programLine(Controller& controller, std::string_view command);

    template <Direction direction>
    static Answer jog(Controller& controller);
    template <Homing kind, Direction direction>
    static Answer home(Controller& controller);
    template <unsigned output>
    static Answer readOutput(Controller& controller);
    template <unsigned output>
    static Answer writeOutput(Controller& controller, std::int64_t on);
    template <int thread>
    static Answer line(Controller& controller);
    template <int thread>
    static Answer state(Controller& controller);
    template <int thread>
    static Answer run(Controller& controller, std::int64_t code);
    static Answer runAll(Controller& controller, std::int64_t code);
    static Answer current(Controller& controller);
    static Answer move(Controller& controller, std::int64_t position);
    static Answer microstep(Controller& controller, std::int64_t value);
    static Answer store(Controller& controller);
    static Answer clearProgram(Controller& controller);

    static std::span<const Plain> plainRows();
    static std::span<const Numbered> numberedRows();
};

/// A decimal whole number of 32 bits with an optional sign and nothing else; nothing otherwise.
std::optional<std::int64_t> wholeNumber(std::string_view text);

}  // namespace zlt::sim
