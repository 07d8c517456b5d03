// Windows has no signals that ask a program to end, and no display that goes away.

#include "app/EndOnSignal.h"

namespace zlt {

EndOnSignal::EndOnSignal(ProgramEnd& programEnd) : m_programEnd(programEnd) {}

EndOnSignal::~EndOnSignal() = default;

void EndOnSignal::end(int signal) {
    m_programEnd.askForEnd(128 + signal);
}

}  // namespace zlt
