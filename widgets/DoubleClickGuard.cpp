#include "widgets/DoubleClickGuard.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace zlt {

void DoubleClickGuard::pressed(const QMouseEvent& press) {
    m_last = {press.globalPosition().toPoint(), static_cast<ulong>(press.timestamp())};
}

bool DoubleClickGuard::covers(const QMouseEvent& press) const {
    if (!m_closing)
        return false;
    const auto time = static_cast<ulong>(press.timestamp());
    const auto interval =
        static_cast<ulong>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    const QPoint apart = press.globalPosition().toPoint() - m_closing->place;
    const int distance = QGuiApplication::styleHints()->mouseDoubleClickDistance();
    return time >= m_closing->timestamp && time - m_closing->timestamp <= interval &&
           std::abs(apart.x()) <= distance && std::abs(apart.y()) <= distance;
}

}  // namespace zlt
