#pragma once

#include <QMouseEvent>
#include <optional>

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
    bool covers(const QMouseEvent& press) const;

 private:
    struct Press {
        QPoint place;         ///< on the desktop
        ulong timestamp = 0;  ///< ms, the event's own
    };
    std::optional<Press> m_last;
    std::optional<Press> m_closing;  ///< the last press before a window was closed
};

}  // namespace zlt
