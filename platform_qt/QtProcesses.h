#pragma once

#include "platform/Processes.h"

namespace zlt {

/// The folder of the executable, links resolved; empty when its name is no valid text.
std::filesystem::path ownFolder();

/// The user's own data folder for this program, which need not exist yet.
std::filesystem::path dataFolder();

/// Starts other programs by Qt; what they print is read as it comes, their input is empty.
class QtProcesses final : public Processes {
 public:
    ProcessEnd runAndWait(const std::filesystem::path& program, const Started& started) override;
};

}  // namespace zlt
