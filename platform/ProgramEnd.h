#pragma once

#include <functional>

#include "platform/Gate.h"

namespace zlt {

/// Ends the program from any depth of handlers and modal screens.
///
/// endProgram() unwinds by a private exception. A handler that is not the outermost one lets
/// its screen go and returns to the event loop; whoever had shown that screen modally calls
/// passOn(), which unwinds on, until the outermost handler leaves the program.
class ProgramEnd {
 public:
    /// What endProgram() throws. Only the code that runs handlers may catch it.
    class Unwind {};

    /// Ends the program with this exit code (0 wanted, 1 a failure). Does not return; no code
    /// of the interrupted handler runs on.
    [[noreturn]] void endProgram(int exitCode);

    /// Begins the end from outside all handlers, as a signal does. Returns; whoever shows a box or
    /// a screen has to close it then, and what had shown it passes the end on.
    void askForEnd(int exitCode);

    /// Called once as the end begins, whichever way, while every screen still stands: to keep what
    /// is not saved. Must not throw.
    std::function<void()> keepUnsaved = {};

    /// Goes on unwinding when an inner screen has ended the program; otherwise does nothing.
    void passOn() const;

    [[nodiscard]] bool ended() const { return m_ended; }
    [[nodiscard]] int exitCode() const { return m_exitCode; }

 private:
    bool m_ended = false;
    int m_exitCode = 0;
};

/// Puts boxes up through another gate, and passes the program's end on when it was ended while
/// one was up: no code of the handler that showed it runs on.
class EndingGate final : public Gate {
 public:
    /// Both outlive this gate.
    EndingGate(Gate& gate, const ProgramEnd& programEnd) : m_gate(gate), m_programEnd(programEnd) {}

    void message(std::string_view text) override;
    bool ask(std::string_view title, std::string_view text) override;
    std::optional<std::string> chooseToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseToSave(const FileChoice& choice) override;

 private:
    Gate& m_gate;
    const ProgramEnd& m_programEnd;
};

}  // namespace zlt
