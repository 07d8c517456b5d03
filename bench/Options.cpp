#include "bench/Options.h"

#include <charconv>
#include <stdexcept>

namespace zlt::bench {
namespace {

constexpr int roundsAtMost = 1000;

int roundsFrom(std::string_view text) {
    int rounds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rounds);
    if (error != std::errc() || end != text.data() + text.size() || rounds < 1 ||
        rounds > roundsAtMost)
        throw std::invalid_argument("--rounds takes a number from 1 to " +
                                    std::to_string(roundsAtMost));
    return rounds;
}

}  // namespace

const std::string_view helpText =
    R"(Measures the exchange with a controller against the time its bytes take on the wire, the
control panel at its poll, and the start.

    --check        exit with 1 when an aim is missed
    --rounds N     N rounds of each measurement, one after the other in turn (5)
    --python FILE  the Python interpreter that has pyserial (/usr/bin/python3)
    --help         this text
)";

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument)
        if (*argument == "--help")
            options.help = true;
        else if (*argument == "--check")
            options.check = true;
        else if (argument + 1 == arguments.end())
            throw std::invalid_argument("unknown or incomplete option: " + *argument);
        else if (*argument == "--rounds")
            options.rounds = roundsFrom(*++argument);
        else if (*argument == "--python")
            options.python = *++argument;
        else if (*argument == "--first-paint")
            options.firstPaint = *++argument;
        else
            throw std::invalid_argument("unknown option: " + *argument);
    return options;
}

}  // namespace zlt::bench
