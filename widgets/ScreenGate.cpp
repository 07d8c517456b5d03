#include "widgets/ScreenGate.h"

#include <utility>

namespace zlt {

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
