#pragma once

#include "platform/Processes.h"

namespace zlt {

class QtProcesses final : public Processes {
 public:
    ProcessEnd runAndWait(const std::filesystem::path& program) override;
};

}  // namespace zlt
