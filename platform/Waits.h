#pragma once

#include <chrono>

namespace zlt {

/// Plain waits. They block the one thread and pump no events.
class Waits {
 public:
    virtual ~Waits() = default;

    /// Returns after `time` has passed, give or take the system's granularity.
    virtual void sleep(std::chrono::milliseconds time) = 0;
};

}  // namespace zlt
