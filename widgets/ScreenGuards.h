#pragma once

#include <QMouseEvent>
#include <functional>
#include <optional>

#include "platform/Gate.h"

namespace zlt {

/// Tells the second press of a double click whose first press closed a window: it was meant for
/// that window, and must not press what lies below. Within the desktop's double-click interval
/// and distance only, so that a quick hand elsewhere always counts.
class DoubleClickGuard {
 public:
    /// Any press of the mouse, wherever it went.
    void pressed(const QMouseEvent& press);
    /// A window above was closed, by whatever means.
    void windowClosed() { m_closing = m_last; }
    /// Whether `press` is such a second one.
    [[nodiscard]] bool covers(const QMouseEvent& press) const;

 private:
    struct Press {
        QPoint place;         ///< on the desktop
        ulong timestamp = 0;  ///< ms, the event's own
    };
    std::optional<Press> m_last;
    std::optional<Press> m_closing;  ///< the last press before a window was closed
};

/// The gate as one screen has it: tells the screen before a box is shown and after it was closed.
class ScreenGate final : public Gate {
 public:
    /// All of it outlives this gate.
    ScreenGate(Gate& gate, std::function<void()> boxOpens, std::function<void()> boxClosed);

    void message(std::string_view text) override;
    bool ask(std::string_view title, std::string_view text) override;
    std::optional<std::string> chooseToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseToSave(const FileChoice& choice) override;

 private:
    /// Shows a box and returns what it returned.
    template <class Show>
    auto around(const Show& show);

    Gate& m_gate;
    std::function<void()> m_boxOpens;
    std::function<void()> m_boxClosed;
};

}  // namespace zlt
