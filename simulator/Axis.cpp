#include "simulator/Axis.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zlt::sim {
namespace {

constexpr unsigned negativeLimitError = 64;
constexpr unsigned positiveLimitError = 128;

unsigned limitError(int sign) {
    return sign < 0 ? negativeLimitError : positiveLimitError;
}

/// The counters of the controller are 32 bits wide and run over at their ends.
std::int64_t asCounter(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

/// The speed in which an edge is looked for once the fast approach is over.
double searchSpeed(const Ramp& ramp) {
    return std::max(1.0, static_cast<double>(ramp.speed) / 4);
}

}  // namespace

bool Axis::mayStart(int sign, const Ramp& ramp) const {
    return m_enabled && !moving() && ramp.speed > 0 && (m_limitErrors & limitError(sign)) == 0;
}

void Axis::start(std::vector<Stage> stages, const Ramp& ramp) {
    const auto milliseconds = std::max<std::int64_t>(ramp.milliseconds, 1);
    m_acceleration = static_cast<double>(ramp.speed) * 1000 / static_cast<double>(milliseconds);
    m_stages = std::move(stages);
    m_stopping = false;
}

bool Axis::jog(Direction direction, const Ramp& ramp) {
    const int sign = static_cast<int>(direction);
    if (!mayStart(sign, ramp))
        return false;
    start({{Until::stopped, sign, static_cast<double>(ramp.speed)}}, ramp);
    return true;
}

bool Axis::moveTo(std::int64_t counter, const Ramp& ramp) {
    const auto target = static_cast<double>(counter + m_counterOffset);
    const int sign = target < m_position ? -1 : 1;
    if (!mayStart(sign, ramp))
        return false;
    if (target != m_position)
        start({{Until::target, sign, static_cast<double>(ramp.speed), target}}, ramp);
    return true;
}

bool Axis::home(Homing kind, Direction direction, const Ramp& ramp, std::int64_t correction) {
    const int sign = static_cast<int>(direction);
    if (!mayStart(sign, ramp))
        return false;
    const auto fast = static_cast<double>(ramp.speed);
    const double slow = searchSpeed(ramp);
    const auto back = static_cast<double>(correction);
    const Stage returnStage{Until::target, -sign, slow};
    switch (kind) {
        case Homing::homeSwitch:
            start({{Until::home, sign, fast, 0, false, true}}, ramp);
            break;
        case Homing::homeSwitchLowSpeed:
            start({{Until::home, sign, fast, 0, false, false, back},
                   returnStage,
                   {Until::home, sign, slow, 0, true, true}},
                  ramp);
            break;
        case Homing::limit: {
            Stage last = returnStage;
            last.zero = true;
            start({{Until::limit, sign, fast, 0, true, false, back}, last}, ramp);
            break;
        }
        case Homing::homeSwitchAndIndex:
            start({{Until::home, sign, fast}, {Until::index, sign, slow, 0, true, true}}, ramp);
            break;
        case Homing::index:
            start({{Until::index, sign, slow, 0, true, true}}, ramp);
            break;
    }
    return true;
}

void Axis::stop() {
    if (moving()) {
        m_stages.resize(1, m_stages.front());
        m_stages.front().until = Until::stopped;
        m_stopping = true;
    }
}

void Axis::abort() {
    halt();
}

bool Axis::changeSpeed(std::int64_t speed) {
    if (!moving() || m_stopping || speed <= 0)
        return false;
    m_stages.front().speed = static_cast<double>(speed);
    return true;
}

void Axis::setEnabled(bool enabled) {
    if (!enabled)
        halt();
    m_enabled = enabled;
}

void Axis::powerUp() {
    halt();
    m_limitErrors = 0;
    m_enabled = true;
    zeroAt(m_position);
}

void Axis::setCounter(std::int64_t value) {
    m_counterOffset = std::llround(m_position) - value;
}

void Axis::setEncoder(std::int64_t value) {
    m_encoderOffset = std::llround(m_position) - value;
}

std::int64_t Axis::counter() const {
    return asCounter(std::llround(m_position) - m_counterOffset);
}

std::int64_t Axis::encoder() const {
    return asCounter(std::llround(m_position) - m_encoderOffset);
}

bool Axis::touches(std::int64_t counter) const {
    const auto where = counter + m_counterOffset;
    const auto from = std::llround(m_previous);
    const auto to = std::llround(m_position);
    return (from <= where && where <= to) || (to <= where && where <= from);
}

unsigned Axis::status() const {
    unsigned word = m_limitErrors;
    if (moving()) {
        word |= 1U;
        word |= m_speeding > 0 ? 2U : 0U;
        word |= m_speeding < 0 ? 4U : 0U;
    }
    word |= limitBetween(-1, m_position) ? 8U : 0U;
    word |= limitBetween(1, m_position) ? 16U : 0U;
    word |= homeBetween(m_position, m_position) ? 32U : 0U;
    return word;
}

}  // namespace zlt::sim
