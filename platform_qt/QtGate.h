#pragma once

#include "platform/Gate.h"

namespace zlt {

/// Shows messages, questions and file choices in Qt's own boxes, over the screen in front.
class QtGate final : public Gate {
 public:
    void message(std::string_view text) override;
    bool ask(std::string_view title, std::string_view text) override;
    std::optional<std::string> chooseToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseToSave(const FileChoice& choice) override;
};

}  // namespace zlt
