#pragma once

#include <thread>

#include "platform/Waits.h"

namespace zlt {

/// Waits by putting the thread to sleep.
class ThreadWaits final : public Waits {
 public:
    void sleep(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
};

}  // namespace zlt
