#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zlt::bench {

struct Options {
    bool help = false;
    bool check = false;  ///< an aim that is missed fails the program
    int rounds = 5;
    std::string python = "/usr/bin/python3";  ///< has pyserial
    std::string firstPaint;                   ///< show this window and nothing else
};

extern const std::string_view helpText;

/// Throws std::invalid_argument.
Options parseOptions(const std::vector<std::string>& arguments);

}  // namespace zlt::bench
