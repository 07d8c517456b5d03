#include <limits>

#include "simulator/Commands.h"
#include "simulator/Controller.h"

namespace zlt::sim {
namespace {

using Answer = Commands::Answer;
using Value = std::int64_t;

constexpr Value least = std::numeric_limits<std::int32_t>::min();
constexpr Value most = std::numeric_limits<std::int32_t>::max();

Answer ok(bool done = true) {
    return done ? Answer{"OK"} : Answer{};
}

Answer number(Value value) {
    return std::to_string(value);
}

}  // namespace

template <Direction direction>
Answer Commands::jog(Controller& c) {
    return ok(c.m_axis.jog(direction, c.ramp()));
}

template <Homing kind, Direction direction>
Answer Commands::home(Controller& c) {
    const Parameters& p = c.m_working;
    const Value correction = kind == Homing::limit ? p.limitCorrection : p.homeCorrection;
    return ok(c.m_axis.home(kind, direction, c.ramp(), correction));
}

template <unsigned output>
Answer Commands::readOutput(Controller& c) {
    return number(c.outputs() >> (output - 1) & 1U);
}

template <unsigned output>
Answer Commands::writeOutput(Controller& c, Value on) {
    const unsigned bit = 1U << (output - 1);
    c.m_outputs = on != 0 ? c.m_outputs | bit : c.m_outputs & ~bit;
    return ok();
}

template <int thread>
Answer Commands::line(Controller& c) {
    return number(static_cast<Value>(c.m_program.thread(thread).line()));
}

template <int thread>
Answer Commands::state(Controller& c) {
    return number(static_cast<Value>(c.m_program.thread(thread).state()));
}

template <int thread>
Answer Commands::run(Controller& c, Value code) {
    return ok(c.m_program.command(thread, static_cast<int>(code), c.m_now));
}

Answer Commands::current(Controller& c) {
    if (!c.m_axis.enabled())
        return number(0);
    return number(c.m_axis.moving() ? c.m_working.runCurrent : c.m_working.idleCurrent);
}

Answer Commands::move(Controller& c, Value position) {
    const Value target = c.m_incremental ? c.m_axis.counter() + position : position;
    return ok(c.m_axis.moveTo(target, c.ramp()));
}

Answer Commands::store(Controller& c) {
    c.m_flash = c.m_working;
    return ok();
}

Answer Commands::clearProgram(Controller& c) {
    if (c.m_program.active())
        return {};
    c.m_program.store().clear();
    return ok();
}

using enum Homing;
using enum Direction;

std::span<const Commands::Plain> Commands::plainRows() {
    static constexpr Plain rows[] = {
        {"VER", 0, [](auto& c) { return Answer{"V" + std::to_string(c.m_firmware)}; }},
        {"ID", 0, [](auto& c) { return Answer{c.m_product}; }},
        {"DB", 0, [](auto& c) { return number(codeOfBaud(c.m_baud)); }},
        {"STORE", 0, store},
        {"CUR", 0, current},
        {"PX", 0, [](auto& c) { return number(c.m_axis.counter()); }},
        {"EX", 0, [](auto& c) { return number(c.m_axis.encoder()); }},
        {"MST", 0, [](auto& c) { return number(c.m_axis.status()); }},
        {"EO", 0, [](auto& c) { return number(c.m_axis.enabled() ? 1 : 0); }},
        {"MM", 317, [](auto& c) { return number(c.m_incremental ? 1 : 0); }},
        {"MS", 0, [](auto& c) { return number(c.m_working.microstep); }},
        {"ABS", 0, [](auto& c) { return c.m_incremental = false, ok(); }},
        {"INC", 0, [](auto& c) { return c.m_incremental = true, ok(); }},
        {"CLR", 0, [](auto& c) { return c.m_axis.clearErrors(), c.m_program.clearErrors(), ok(); }},
        {"STOP", 0, [](auto& c) { return c.m_axis.stop(), ok(); }},
        {"ABORT", 0, [](auto& c) { return c.m_axis.abort(), ok(); }},
        {"J+", 0, jog<plus>},
        {"J-", 0, jog<minus>},
        {"H+", 0, home<homeSwitch, plus>},
        {"H-", 0, home<homeSwitch, minus>},
        {"HL+", 322, home<homeSwitchLowSpeed, plus>},
        {"HL-", 322, home<homeSwitchLowSpeed, minus>},
        {"L+", 322, home<limit, plus>},
        {"L-", 322, home<limit, minus>},
        {"ZH+", 0, home<homeSwitchAndIndex, plus>},
        {"ZH-", 0, home<homeSwitchAndIndex, minus>},
        {"Z+", 0, home<index, plus>},
        {"Z-", 0, home<index, minus>},
        {"DO", 317, readOutput<1>},
        {"DO1", 0, readOutput<1>},
        {"DO2", 0, readOutput<2>},
        {"DO3", 0, readOutput<3>},
        {"LT", 0, [](auto& c) { return number(c.m_latch); }},
        {"LTS", 0, [](auto& c) { return number(c.m_latch); }},
        {"SYNC", 0, [](auto& c) { return number(c.m_syncMode); }},
        {"SYNP", 0, [](auto& c) { return number(c.m_syncPosition); }},
        {"SYNO", 0, [](auto& c) { return c.m_syncOn = true, ok(); }},
        {"SYNF", 0, [](auto& c) { return c.m_syncOn = false, ok(); }},
        {"SPC", 317, line<0>},
        {"SPC0", 317, line<0>},
        {"SPC1", 322, line<1>},
        {"SASTAT", 317, state<0>},
        {"SASTAT0", 317, state<0>},
        {"SASTAT1", 322, state<1>},
        {"SAPN", 0, [](auto& c) { return number(std::ssize(c.m_program.store().lines())); }},
        {"SAPC", 0, clearProgram},
    };
    return rows;
}

std::span<const Commands::Numbered> Commands::numberedRows() {
    static constexpr Numbered rows[] = {
        {"X", 0, least, most, move},
        {"SSPD", 0, 1, 5000000, [](auto& c, Value v) { return ok(c.m_axis.changeSpeed(v)); }},
        {"PX=", 0, least, most, [](auto& c, Value v) { return c.m_axis.setCounter(v), ok(); }},
        {"EX=", 0, least, most, [](auto& c, Value v) { return c.m_axis.setEncoder(v), ok(); }},
        {"EO=", 0, 0, 1, [](auto& c, Value v) { return c.m_axis.setEnabled(v != 0), ok(); }},
        {"MS=", 0, 1, 16, microstep},
        {"DB=", 0, 1, 5, [](auto& c, Value v) { return c.m_working.baudCode = v, ok(); }},
        {"DO=", 0, 0, 1, writeOutput<1>},
        {"DO1=", 0, 0, 1, writeOutput<1>},
        {"DO2=", 0, 0, 1, writeOutput<2>},
        {"DO3=", 0, 0, 1, writeOutput<3>},
        {"LT=", 0, 0, 1, [](auto& c, Value v) { return c.m_latch = v, ok(); }},
        {"SYNC=", 0, 1, 3, [](auto& c, Value v) { return c.m_syncMode = v, ok(); }},
        {"SYNP=", 0, least, most, [](auto& c, Value v) { return c.m_syncPosition = v, ok(); }},
        {"SR=", 0, 0, 3, runAll},
        {"SR0=", 0, 0, 3, run<0>},
        {"SR1=", 322, 0, 3, run<1>},
    };
    return rows;
}

Answer Commands::microstep(Controller& c, Value v) {
    const bool known = v == 1 || v == 2 || v == 4 || v == 16;
    if (known)
        c.m_working.microstep = v;
    return ok(known);
}

/// The program as a whole is thread 0 alone where the firmware has no second thread.
Answer Commands::runAll(Controller& c, Value code) {
    return c.m_firmware < 322 ? run<0>(c, code)
                              : ok(c.m_program.commandAll(static_cast<int>(code), c.m_now));
}

}  // namespace zlt::sim
