#include "platform/ProgramEnd.h"

namespace zlt {

void ProgramEnd::endProgram(int exitCode) {
    askForEnd(exitCode);
    throw Unwind();
}

void ProgramEnd::askForEnd(int exitCode) {
    if (m_ended)
        return;
    m_exitCode = exitCode;
    m_ended = true;
    if (keepUnsaved)
        keepUnsaved();
}

void ProgramEnd::passOn() const {
    if (m_ended)
        throw Unwind();
}

void EndingGate::message(std::string_view text) {
    m_gate.message(text);
    m_programEnd.passOn();
}

bool EndingGate::ask(std::string_view title, std::string_view text) {
    const bool answer = m_gate.ask(title, text);
    m_programEnd.passOn();
    return answer;
}

std::optional<std::string> EndingGate::chooseToOpen(const FileChoice& choice) {
    auto name = m_gate.chooseToOpen(choice);
    m_programEnd.passOn();
    return name;
}

std::optional<std::string> EndingGate::chooseToSave(const FileChoice& choice) {
    auto name = m_gate.chooseToSave(choice);
    m_programEnd.passOn();
    return name;
}

}  // namespace zlt
