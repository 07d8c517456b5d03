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

}  // namespace zlt
