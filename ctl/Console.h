#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace zlt::ctl {

/// The terminal that the program was started in, or what stands in its place.
class Console {
 public:
    virtual ~Console() = default;

    /// The number of the signal that asks the program to end; 0 as long as none does.
    virtual int signalCaught() = 0;
    /// Waits for `time`, or until a signal comes.
    virtual void pause(std::chrono::milliseconds time) = 0;
    /// The next line of standard input, UTF-8, without its end. Nothing at the end of the input,
    /// and when a signal comes. On a terminal `prompt` stands before it, and it can be edited.
    virtual std::optional<std::string> readLine(std::string_view prompt) = 0;
};

}  // namespace zlt::ctl
