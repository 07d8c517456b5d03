#include "widgets/Handlers.h"

#include <QCoreApplication>
#include <algorithm>
#include <exception>
#include <utility>

namespace zlt {
namespace {

/// How many handlers, of all screens, are on the stack.
int handlersRunning = 0;

class Running {
 public:
    explicit Running(bool& flag) : m_flag(flag), m_before(flag) {
        m_flag = true;
        ++handlersRunning;
    }
    ~Running() {
        m_flag = m_before;
        --handlersRunning;
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

 private:
    bool& m_flag;
    bool m_before;
};

/// How soon a tick that came at a bad moment comes again.
constexpr std::chrono::milliseconds refusedTick{10};
constexpr std::chrono::milliseconds soonest{1};

}  // namespace

Handlers::Handlers(const Services& services, std::function<void()> leaveScreen)
    : m_services(services), m_leaveScreen(std::move(leaveScreen)) {}

void Handlers::run(const std::function<void()>& handler) {
    if (!m_running)
        runToItsEnd(handler);
}

void Handlers::runStop(const std::function<void()>& stop) {
    runToItsEnd(stop);
}

void Handlers::runToItsEnd(const std::function<void()>& handler) {
    if (m_services.programEnd.ended())
        return;
    try {
        const Running running(m_running);
        show(handler);
    } catch (const ProgramEnd::Unwind&) {
        m_leaveScreen();
        if (handlersRunning == 0)
            QCoreApplication::exit(m_services.programEnd.exitCode());
    }
}

void Handlers::onClick(QAbstractButton& button, std::function<void(bool)> handler) {
    QObject::connect(
        &button, &QAbstractButton::clicked, &button,
        [this, handler = std::move(handler)](bool checked) { run([&] { handler(checked); }); });
}

void Handlers::onTick(QTimer& timer, std::function<std::chrono::milliseconds()> tick) {
    QObject::connect(&timer, &QTimer::timeout, &timer, [this, &timer, tick = std::move(tick)] {
        std::chrono::milliseconds next = refusedTick;
        run([&] { next = tick(); });
        if (timer.isActive())
            timer.start(std::max(next, soonest));
    });
}

void Handlers::runWithinCaller(const std::function<void()>& work) {
    const Running running(m_running);
    show(work);
}

void Handlers::show(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception& error) {
        m_services.gate.message(error.what());
    }
}

}  // namespace zlt
