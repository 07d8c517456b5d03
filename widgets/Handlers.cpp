#include "widgets/Handlers.h"

#include <QCoreApplication>
#include <exception>
#include <utility>

namespace zlt {
namespace {

/// How many handlers, of all screens, are on the stack.
int handlersRunning = 0;

class Running {
 public:
    explicit Running(bool& flag) : m_flag(flag) {
        m_flag = true;
        ++handlersRunning;
    }
    ~Running() {
        m_flag = false;
        --handlersRunning;
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

 private:
    bool& m_flag;
};

}  // namespace

Handlers::Handlers(const Services& services, std::function<void()> leaveScreen)
    : m_services(services), m_leaveScreen(std::move(leaveScreen)) {}

void Handlers::run(const std::function<void()>& handler) {
    if (m_running || m_services.programEnd.ended())
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
