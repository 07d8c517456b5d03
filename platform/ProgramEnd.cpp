#include "platform/ProgramEnd.h"

namespace zlt {

void ProgramEnd::endProgram(int exitCode) {
    if (!m_ended)
        m_exitCode = exitCode;
    m_ended = true;
    throw Unwind();
}

void ProgramEnd::passOn() const {
    if (m_ended)
        throw Unwind();
}

}  // namespace zlt
