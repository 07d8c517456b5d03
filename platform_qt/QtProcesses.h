#pragma once

#include "platform/Processes.h"

namespace zlt {

/// The folder of the executable, links resolved.
std::filesystem::path ownFolder();

class QtProcesses final : public Processes {
 public:
    ProcessEnd runAndWait(const std::filesystem::path& program) override;
};

}  // namespace zlt
