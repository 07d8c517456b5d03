// On Windows there are no signals to heed but Ctrl+C, and no editing but the console's own.

#include <io.h>
#include <windows.h>

#include <algorithm>
#include <csignal>
#include <iostream>

#include "ctl/LineEntry.h"
#include "ctl/SystemConsole.h"

namespace zlt::ctl {
namespace {

volatile std::sig_atomic_t interruptSeen = 0;

}  // namespace

bool isTerminal(Stream stream) {
    return _isatty(static_cast<int>(stream)) != 0;
}

SystemConsole::SystemConsole() {
    SetConsoleOutputCP(
        CP_UTF8);  // a console has an older one; what is no console keeps what it gets
    std::signal(SIGINT, [](int number) { interruptSeen = number; });
}

int SystemConsole::signalCaught() {
    return m_caught = interruptSeen;
}

void SystemConsole::pause(std::chrono::milliseconds time) {
    constexpr std::chrono::milliseconds slice{20};
    for (; time.count() > 0 && signalCaught() == 0; time -= slice)
        Sleep(static_cast<DWORD>(std::min(time, slice).count()));
}

bool SystemConsole::waitForInput() {
    return signalCaught() == 0;
}

std::optional<std::string> SystemConsole::readPlainLine() {
    if (std::getline(std::cin, m_input))
        return m_input;
    return std::nullopt;
}

}  // namespace zlt::ctl
