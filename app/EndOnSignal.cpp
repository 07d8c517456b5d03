#include "app/EndOnSignal.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QSocketNotifier>
#include <cstdlib>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <signal.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#endif

namespace zlt {
namespace {

// What exit() runs gets nothing at all. Null while nothing is there to be ended.
ProgramEnd* endAtExit = nullptr;

void keepAtExit() {
    if (endAtExit)
        endAtExit->askForEnd(EXIT_FAILURE);
}

void heedExit(ProgramEnd& programEnd) {
    static const int noted = std::atexit(keepAtExit);
    endAtExit = noted == 0 ? &programEnd : nullptr;
}

}  // namespace

#ifdef Q_OS_UNIX

namespace {

// A signal's handler gets nothing but the number.
std::array<int, 2> wakeUp{-1, -1};
volatile sig_atomic_t alreadyAsked = 0;
time_t firstAsked = 0;

constexpr time_t patienceSeconds = 2;

/// Only what POSIX allows in a signal's handler.
void noteSignal(int number) {
    const int errnoBefore = errno;
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    if (!alreadyAsked) {
        alreadyAsked = 1;
        firstAsked = now.tv_sec;
    } else if (now.tv_sec - firstAsked > patienceSeconds) {
        signal(number, SIG_DFL);
        raise(number);
    }
    const char byte = static_cast<char>(number);
    (void)!write(wakeUp[0], &byte, 1);
    errno = errnoBefore;
}

void heed(int number) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler == SIG_IGN)
        return;  // started with nohup(1), say
    action = {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

}  // namespace

EndOnSignal::EndOnSignal(ProgramEnd& programEnd) : m_programEnd(programEnd) {
    heedExit(programEnd);
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, wakeUp.data()) != 0)
        return;
    auto* notifier = new QSocketNotifier(wakeUp[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char number = 0;
        if (read(wakeUp[1], &number, 1) == 1)
            end(number);
    });
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        heed(number);
}

#else

EndOnSignal::EndOnSignal(ProgramEnd& programEnd) : m_programEnd(programEnd) {
    heedExit(programEnd);
}

#endif

EndOnSignal::~EndOnSignal() {
    endAtExit = nullptr;
}

void EndOnSignal::end(int signal) {
    m_programEnd.askForEnd(128 + signal);
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    // What had shown the box or screen on top passes the end on, down to the start-up screen.
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog) {
        QCoreApplication::exit(m_programEnd.exitCode());
        return;
    }
    dialog->reject();
    // A question of a file dialog's own, about overwriting say, has nobody who passes it on.
    while (auto* below = qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
        below->reject();
}

}  // namespace zlt
