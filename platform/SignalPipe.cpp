#include "platform/SignalPipe.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace zlt {
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

int catchSignals(std::initializer_list<int> numbers) {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, wakeUp.data()) != 0)
        return -1;
    for (const int number : numbers)
        heed(number);
    return wakeUp[1];
}

}  // namespace zlt
