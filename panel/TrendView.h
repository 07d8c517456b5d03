#pragma once

#include <chrono>

#include "panel/TrendRecord.h"

namespace zlt {

/// Which stretch of time the trend shows: the last seconds up to now, or one that stands still.
class TrendView {
 public:
    using Span = std::chrono::nanoseconds;
    static constexpr Span shortest = std::chrono::milliseconds(50);
    static constexpr Span longest = std::chrono::hours(1);

    /// What there is to be looked at.
    struct Bounds {
        TrendTime oldest, now;
    };

    [[nodiscard]] Span span() const { return m_span; }
    /// Whether the right edge is now, and goes with it.
    [[nodiscard]] bool following() const { return m_following; }
    [[nodiscard]] TrendTime right(TrendTime now) const { return m_following ? now : m_right; }
    [[nodiscard]] TrendTime left(TrendTime now) const { return right(now) - m_span; }

    void pause(TrendTime now);
    void resume() { m_following = true; }

    /// Shows a span of that length around the same middle; up to now when it goes with it.
    void setSpan(Span span, const Bounds& bounds);
    /// Makes the span `factor` times as long; the time at `place`, 0 at the left edge to 1 at the
    /// right one, stays where it is.
    void zoom(double factor, double place, const Bounds& bounds);
    /// Moves the view back in time, or on for a negative `by`. One that comes to now follows it.
    void moveBack(Span by, const Bounds& bounds);

 private:
    void showUpTo(TrendTime right, const Bounds& bounds);

    Span m_span = std::chrono::minutes(1);
    bool m_following = true;
    TrendTime m_right;
};

}  // namespace zlt
