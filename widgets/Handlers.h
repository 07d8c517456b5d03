#pragma once

#include <QAbstractButton>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <type_traits>
#include <utility>

#include "link/Services.h"

namespace zlt {

/// Runs the event handlers of one screen and of the frames on it: one at a time, each to its
/// end. Nothing is thrown through the event loop: what a handler throws is shown as a
/// message, and the end of the program is passed on to the outermost handler.
class Handlers {
 public:
    /// `leaveScreen` ends the screen's own event loop; used when the program ends.
    Handlers(const Services& services, std::function<void()> leaveScreen);

    /// Runs `handler`, unless one of this screen is running: a tick or a signal that falls
    /// into a running handler does nothing.
    void run(const std::function<void()>& handler);

    /// Connects a signal, a button's click apart, to a member function that takes the signal's
    /// values, or none.
    template <class Sender, class... SignalArgs, class Receiver, class... Args>
    void connect(std::type_identity_t<Sender>* sender, void (Sender::*signal)(SignalArgs...),
                 Receiver* receiver, void (Receiver::*handler)(Args...)) {
        if constexpr (sizeof...(Args) == 0)
            QObject::connect(sender, signal, receiver,
                             [this, receiver, handler] { run([=] { (receiver->*handler)(); }); });
        else
            QObject::connect(sender, signal, receiver, [this, receiver, handler](Args... args) {
                run([=] { (receiver->*handler)(args...); });
            });
    }

    /// Connects a signal of an operator's act, a button's click apart, to a function.
    template <class Sender>
    void onSignal(Sender& sender, void (Sender::*signal)(), std::function<void()> handler) {
        QObject::connect(&sender, signal, &sender,
                         [this, handler = std::move(handler)] { run(handler); });
    }

    /// Runs `handler` at each click of the operator, with the button's mark as the click left
    /// it. A mark that is set by other means runs nothing.
    void onClick(QAbstractButton& button, std::function<void(bool checked)> handler);

    /// Runs a stop, also while a handler of this screen waits for a box or for another screen: the
    /// only times at which an event can reach it then.
    void runStop(const std::function<void()>& stop);

    /// Runs `tick` at each tick of `timer`, which is armed again after it: `tick` returns for how
    /// long. A timer left overdue would go before a press that is waiting, by one whole tick.
    void onTick(QTimer& timer, std::function<std::chrono::milliseconds()> tick);

    /// As run(), for work before the screen is shown that its caller's handler waits for: an
    /// end of the program is passed on to the caller.
    void runWithinCaller(const std::function<void()>& work);

 private:
    void show(const std::function<void()>& work);
    void runToItsEnd(const std::function<void()>& handler);

    const Services& m_services;
    std::function<void()> m_leaveScreen;
    bool m_running = false;
};

}  // namespace zlt
