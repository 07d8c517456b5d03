#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zlt::ctl {

struct Context;

/// What is done before a command begins.
enum class Needs { nothing, openPort, identifiedDevice };

/// One command of the program.
struct Command {
    std::string_view name;
    std::size_t leastOperands = 0;
    std::size_t mostOperands = 0;
    Needs needs = Needs::identifiedDevice;
    void (*carryOut)(Context&) = nullptr;
    /// Its own options, each between blanks.
    std::string_view options = {};
    bool servesAll = false;  ///< device 00 too
    bool isStop = false;     ///< goes out whatever is wrong beside it
};

/// The command that these words begin with, and how many are its name. None is a null pointer.
std::pair<const Command*, std::size_t> findCommand(const std::vector<std::string>& words);

/// Whether the command takes this option (its long name), of its own or as all do.
bool takes(const Command& command, std::string_view option);

}  // namespace zlt::ctl
