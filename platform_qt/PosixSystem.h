#pragma once

#include <thread>

#include "platform/System.h"

namespace zlt {

/// Waits by putting the thread to sleep.
class ThreadWaits final : public Waits {
 public:
    void sleep(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
};

/// Starts other programs by Qt; what they print is read as it comes, their input is empty.
class QtProcesses final : public Processes {
 public:
    ProcessEnd runAndWait(const std::filesystem::path& program, const Started& started) override;
};

}  // namespace zlt
