// Windows has no signals that ask a program to end.

#include "app/EndOnSignal.h"

namespace zlt {

EndOnSignal::EndOnSignal(ProgramEnd& programEnd) : m_programEnd(programEnd) {}

void EndOnSignal::end(int signal) {
    m_programEnd.askForEnd(128 + signal);
}

}  // namespace zlt
