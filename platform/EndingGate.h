#pragma once

#include "platform/Gate.h"
#include "platform/ProgramEnd.h"

namespace zlt {

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
