#include "panel/TrendView.h"

#include <algorithm>

namespace zlt {

void TrendView::pause(TrendTime now) {
    m_right = right(now);
    m_following = false;
}

void TrendView::setSpan(Span span, const Bounds& bounds) {
    const TrendTime middle = left(bounds.now) + m_span / 2;
    m_span = std::clamp(span, shortest, longest);
    if (!m_following)
        showUpTo(middle + m_span / 2, bounds);
}

void TrendView::zoom(double factor, double place, const Bounds& bounds) {
    const auto part = [place](Span of) {
        return Span(static_cast<Span::rep>(static_cast<double>(of.count()) * (1 - place)));
    };
    const TrendTime fixed = right(bounds.now) - part(m_span);
    const double wanted = static_cast<double>(m_span.count()) * factor;
    m_span = Span(static_cast<Span::rep>(std::clamp(wanted, static_cast<double>(shortest.count()),
                                                    static_cast<double>(longest.count()))));
    showUpTo(fixed + part(m_span), bounds);
}

void TrendView::moveBack(Span by, const Bounds& bounds) {
    showUpTo(right(bounds.now) - by, bounds);
}

void TrendView::showUpTo(TrendTime right, const Bounds& bounds) {
    m_following = right >= bounds.now;
    m_right = std::max(right, bounds.oldest);
}

}  // namespace zlt
