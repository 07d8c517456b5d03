#pragma once

#include <atomic>
#include <string>
#include <string_view>

namespace zlt::bench {

/// A controller on the move: with each pass of the panel's poll ten of its values are others.
class LiveController {
 public:
    /// The reply to a request, both whole lines; nothing to what the poll does not ask.
    std::string answer(std::string_view line);

    /// Passes of the poll so far; each begins with the current.
    [[nodiscard]] long passes() const { return m_passes; }

 private:
    [[nodiscard]] std::string value(std::string_view asked) const;

    std::atomic<long> m_passes = 0;
};

}  // namespace zlt::bench
