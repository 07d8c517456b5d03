#pragma once

#include "platform/Gate.h"
#include "platform/HelpViewer.h"

namespace zlt {

/// Hands help files to the program that the desktop has for them.
class QtHelpViewer final : public HelpViewer {
 public:
    explicit QtHelpViewer(Gate& gate) : m_gate(gate) {}

    void openContents(const std::filesystem::path& file) override;

 private:
    Gate& m_gate;
};

}  // namespace zlt
