#pragma once

#include <memory>
#include <string>

#include "ctl/Console.h"

namespace zlt::ctl {

enum class Stream { input = 0, output = 1, errors = 2 };

/// Whether a standard stream is a terminal.
bool isTerminal(Stream stream);

/// The real terminal. From when it is made, signals that ask for an end are noted in place of
/// ending the program, and a closed pipe is an error in place of a signal. There is one of these.
class SystemConsole final : public Console {
 public:
    SystemConsole();
    ~SystemConsole() override;

    int signalCaught() override;
    void pause(std::chrono::milliseconds time) override;
    std::optional<std::string> readLine(std::string_view prompt) override;

 private:
    /// Waits for input. False when a signal came.
    bool waitForInput();
    std::optional<std::string> readPlainLine();

    int m_signals = -1;  ///< where they can be read
    int m_caught = 0;
    std::string m_input;  ///< read and not handed on
    std::unique_ptr<class LineEntry> m_entry;
};

}  // namespace zlt::ctl
