#pragma once

#include <string>

namespace zlt::bench {

/// Holds what is measured against the aims, and remembers whether one was missed.
class Judge {
 public:
    /// Each says the aim and the verdict, for a table: "0.90 met".
    std::string atLeast(double value, double aim) { return tell(value >= aim, aim); }
    std::string atMost(double value, double aim) { return tell(value <= aim, aim); }
    /// For what must not happen at all: `what` when it did, or nothing.
    std::string never(bool happened, const std::string& what);

    [[nodiscard]] bool allMet() const { return m_allMet; }

 private:
    std::string tell(bool met, double aim);

    bool m_allMet = true;
};

}  // namespace zlt::bench
