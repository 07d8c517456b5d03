#pragma once

#include "platform/Gate.h"

namespace zlt {

/// Shows messages in Qt's own boxes, over the screen that is in front.
class QtGate final : public Gate {
 public:
    void message(std::string_view text) override;
};

}  // namespace zlt
