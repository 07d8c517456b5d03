#pragma once

#include <chrono>
#include <ctime>
#include <string>

namespace zlt {

/// One moment by both clocks: the steady one for how long ago it was, the machine's own for people.
struct Moment {
    std::chrono::steady_clock::time_point steady;
    std::chrono::system_clock::time_point wall;

    static Moment now() {
        return {std::chrono::steady_clock::now(), std::chrono::system_clock::now()};
    }
};

/// A time by the calendar and clock of this place.
std::tm localTime(std::time_t time);

/// Local date and time to the millisecond: "2026-11-22 14:03:07.123".
std::string dateAndTime(std::chrono::system_clock::time_point wall);

/// The time of day alone: "14:03:07.123".
std::string timeOfDay(std::chrono::system_clock::time_point wall);

}  // namespace zlt
