#pragma once

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

    /// Goes on unwinding when an inner screen has ended the program; otherwise does nothing.
    void passOn() const;

    bool ended() const { return m_ended; }
    int exitCode() const { return m_exitCode; }

 private:
    bool m_ended = false;
    int m_exitCode = 0;
};

}  // namespace zlt
