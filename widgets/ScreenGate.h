#pragma once

#include <functional>

#include "platform/Gate.h"

namespace zlt {

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
