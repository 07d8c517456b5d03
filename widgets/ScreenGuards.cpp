#include "widgets/ScreenGuards.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <utility>

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

ScreenGate::ScreenGate(Gate& gate, std::function<void()> boxOpens, std::function<void()> boxClosed)
    : m_gate(gate), m_boxOpens(std::move(boxOpens)), m_boxClosed(std::move(boxClosed)) {}

template <class Show>
auto ScreenGate::around(const Show& show) {
    m_boxOpens();
    auto answer = show();
    m_boxClosed();
    return answer;
}

void ScreenGate::message(std::string_view text) {
    around([&] {
        m_gate.message(text);
        return true;
    });
}

bool ScreenGate::ask(std::string_view title, std::string_view text) {
    return around([&] { return m_gate.ask(title, text); });
}

std::optional<std::string> ScreenGate::chooseToOpen(const FileChoice& choice) {
    return around([&] { return m_gate.chooseToOpen(choice); });
}

std::optional<std::string> ScreenGate::chooseToSave(const FileChoice& choice) {
    return around([&] { return m_gate.chooseToSave(choice); });
}

}  // namespace zlt
