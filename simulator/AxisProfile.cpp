// How the axis gets from one millisecond to the next.

#include <algorithm>
#include <cmath>

#include "simulator/Axis.h"

namespace zlt::sim {
namespace {

constexpr Time gridStep = std::chrono::milliseconds(1);
constexpr double gridSeconds = 0.001;

}  // namespace

void Axis::advance(Time now) {
    if (!m_started) {
        m_started = true;
        m_now = now;
    }
    while (moving() && m_now + gridStep <= now) {
        m_now += gridStep;
        step();
    }
    if (!moving() && now > m_now) {
        m_now = now;
        m_previous = m_position;
    }
}

/// Toward the stage's speed by what the acceleration allows in one step. A target bounds the speed
/// from above by what can still be braked, which gives the falling edge of the trapezoid.
double Axis::nextVelocity(const Stage& stage) const {
    const double change = m_acceleration * gridSeconds;
    double goal = m_stopping ? 0 : stage.speed;
    if (stage.until == Until::target && !m_stopping) {
        const double left = std::max(0.0, (stage.target - m_position) * stage.sign);
        goal = std::min(goal, std::sqrt(2 * m_acceleration * left));
    }
    const double speed = m_velocity * stage.sign;
    return std::clamp(goal, speed - change, speed + change) * stage.sign;
}

void Axis::step() {
    const Stage stage = m_stages.front();
    const double velocity = nextVelocity(stage);
    const double faster = std::abs(velocity) - std::abs(m_velocity);
    m_speeding = faster > 0 ? 1 : (faster < 0 ? -1 : 0);
    const double next = m_position + (m_velocity + velocity) / 2 * gridSeconds;
    m_previous = m_position;
    m_velocity = velocity;

    const auto limit = limitBetween(stage.sign, next);
    if (limit && stage.until != Until::limit && !m_limitsDisabled) {
        // Met before the switch opens again on the way back, a limit ends the move where it is.
        m_position = stage.sign < 0 ? std::min(m_position, *limit) : std::max(m_position, *limit);
        m_limitErrors |= stage.sign < 0 ? 64U : 128U;
        halt();
        return;
    }
    if (!m_stopping) {
        if (const auto event = eventBetween(stage, m_position, next)) {
            meetEvent(stage, *event, next);
            return;
        }
    }
    m_position = next;
    if (m_stopping && m_velocity == 0) {
        m_position = static_cast<double>(std::llround(m_position));
        finishStage();
    }
}

std::optional<double> Axis::eventBetween(const Stage& stage, double from, double to) const {
    const auto pitch = static_cast<double>(std::max<std::int64_t>(m_layout.indexPitch, 1));
    switch (stage.until) {
        case Until::target:
            if ((to - stage.target) * stage.sign >= 0)
                return stage.target;
            return {};
        case Until::home:
            return homeBetween(from, to);
        case Until::limit:
            return limitBetween(stage.sign, to);
        case Until::index: {
            const double mark = stage.sign > 0 ? (std::floor(from / pitch) + 1) * pitch
                                               : (std::ceil(from / pitch) - 1) * pitch;
            if ((to - mark) * stage.sign >= 0)
                return mark;
            return {};
        }
        case Until::stopped:
            break;
    }
    return {};
}

std::optional<double> Axis::limitBetween(int sign, double to) const {
    const auto limit =
        static_cast<double>(sign < 0 ? m_layout.negativeLimit : m_layout.positiveLimit);
    if ((to - limit) * sign >= 0)
        return limit;
    return {};
}

std::optional<double> Axis::homeBetween(double from, double to) const {
    const auto first = static_cast<double>(m_layout.home);
    const auto last = static_cast<double>(m_layout.home + m_layout.homeWidth);
    if (std::max(from, to) < first || std::min(from, to) > last)
        return {};
    return std::clamp(from, first, last);
}

void Axis::meetEvent(const Stage& stage, double where, double next) {
    if (stage.zero)
        zeroAt(where);
    if (m_stages.size() > 1)
        m_stages[1].target = where - stage.sign * stage.backOff;
    if (stage.until == Until::target || stage.atOnce) {
        m_position = where;
        m_velocity = 0;
        finishStage();
        return;
    }
    m_position = next;
    m_stopping = true;
}

void Axis::finishStage() {
    m_stages.erase(m_stages.begin());
    m_stopping = false;
    if (m_stages.empty())
        halt();
}

void Axis::halt() {
    m_stages.clear();
    m_stopping = false;
    m_velocity = 0;
    m_speeding = 0;
    m_position = static_cast<double>(std::llround(m_position));
}

void Axis::zeroAt(double where) {
    m_counterOffset = std::llround(where);
    m_encoderOffset = m_counterOffset;
}

}  // namespace zlt::sim
