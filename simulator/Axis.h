#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "simulator/Time.h"

namespace zlt::sim {

/// Where the switches sit on the machine, in pulses from where the axis stood at first.
/// The machine does not move when somebody sets the position counter.
struct AxisLayout {
    std::int64_t negativeLimit = -20000;
    std::int64_t positiveLimit = 20000;
    std::int64_t home = -2000;      ///< first pulse on which the home switch is closed
    std::int64_t homeWidth = 200;   ///< pulses for which it stays closed
    std::int64_t indexPitch = 800;  ///< pulses between two index marks of the encoder
};

/// How fast a move goes: speed in pulses per second, and the time in milliseconds in which that
/// speed is reached from standstill.
struct Ramp {
    std::int64_t speed = 1000;
    std::int64_t milliseconds = 300;
};

enum class Direction { minus = -1, plus = 1 };

/// The ways to find home, named after what they look for.
enum class Homing { homeSwitch, homeSwitchLowSpeed, limit, homeSwitchAndIndex, index };

/// One stepper axis with a trapezoid profile, two limit switches, a home switch and an encoder.
/// It is integrated on a fixed grid, so what it does is independent of how often it is advanced.
class Axis {
 public:
    explicit Axis(const AxisLayout& layout = {}) : m_layout(layout) {}

    /// Moves on to the given time. Time that runs backwards is ignored.
    void advance(Time now);

    /// The motion commands. Each answers false, and changes nothing, when the axis is moving
    /// already, has no power, has no speed, or is held by a limit error in that direction.
    bool jog(Direction direction, const Ramp& ramp);
    bool moveTo(std::int64_t counter, const Ramp& ramp);
    /// `correction` is the distance in pulses by which the two-step kinds back off again.
    bool home(Homing kind, Direction direction, const Ramp& ramp, std::int64_t correction);

    /// Ends the move with its ramp.
    void stop();
    /// Ends the move at once.
    void abort();
    /// Changes the speed of the running move, in pulses per second; false when there is none.
    bool changeSpeed(std::int64_t speed);

    void setEnabled(bool enabled);
    [[nodiscard]] bool enabled() const { return m_enabled; }
    void setLimitsDisabled(bool disabled) { m_limitsDisabled = disabled; }
    void clearErrors() { m_limitErrors = 0; }
    /// What a loss of power does: standstill, counters at zero, errors forgotten.
    void powerUp();

    void setCounter(std::int64_t value);
    void setEncoder(std::int64_t value);
    [[nodiscard]] std::int64_t counter() const;
    [[nodiscard]] std::int64_t encoder() const;
    [[nodiscard]] bool moving() const { return !m_stages.empty(); }
    /// Whether the counter has this value now or ran through it within the last millisecond.
    [[nodiscard]] bool touches(std::int64_t counter) const;
    /// The status word: moving 1, speeding up 2, slowing down 4, limits 8 and 16, home switch 32,
    /// limit errors 64 and 128; minus first.
    [[nodiscard]] unsigned status() const;

 private:
    /// What ends a stage of a move.
    enum class Until { stopped, target, home, limit, index };
    /// One straight part of a move.
    struct Stage {
        Until until;
        int sign;
        double speed;
        double target = 0;    ///< of a `target` stage, on the machine
        bool atOnce = false;  ///< stands still where the event is met, without a ramp
        bool zero = false;    ///< the counters are zero where the event is met
        double backOff = 0;   ///< the stage after this one goes to that far before the event
    };

    [[nodiscard]] bool mayStart(int sign, const Ramp& ramp) const;
    void start(std::vector<Stage> stages, const Ramp& ramp);
    void step();
    [[nodiscard]] double nextVelocity(const Stage& stage) const;
    [[nodiscard]] std::optional<double> eventBetween(const Stage& stage, double from,
                                                     double to) const;
    [[nodiscard]] std::optional<double> limitBetween(int sign, double to) const;
    [[nodiscard]] std::optional<double> homeBetween(double from, double to) const;
    void meetEvent(const Stage& stage, double where, double next);
    void finishStage();
    void halt();
    void zeroAt(double where);

    AxisLayout m_layout;
    Time m_now{0};
    bool m_started = false;
    double m_position = 0;  ///< on the machine, pulses
    double m_previous = 0;  ///< one step ago
    double m_velocity = 0;  ///< pulses per second, signed
    double m_acceleration = 1;
    std::int64_t m_counterOffset = 0;
    std::int64_t m_encoderOffset = 0;
    std::vector<Stage> m_stages;  ///< the one under way first
    bool m_stopping = false;
    int m_speeding = 0;  ///< 1 faster, -1 slower
    unsigned m_limitErrors = 0;
    bool m_enabled = true;
    bool m_limitsDisabled = false;
};

}  // namespace zlt::sim
