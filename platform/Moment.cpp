#include "platform/Moment.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace zlt {

std::string dateAndTime(std::chrono::system_clock::time_point wall) {
    const auto second = std::chrono::floor<std::chrono::seconds>(wall);
    const auto thousandths =
        std::chrono::duration_cast<std::chrono::milliseconds>(wall - second).count();
    const std::time_t time = std::chrono::system_clock::to_time_t(second);
    const std::tm local = localTime(time);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    std::array<char, 8> fraction{};
    std::snprintf(fraction.data(), fraction.size(), ".%03d", static_cast<int>(thousandths));
    return std::string(text.data()) + fraction.data();
}

std::string timeOfDay(std::chrono::system_clock::time_point wall) {
    const std::string whole = dateAndTime(wall);
    return whole.substr(whole.find(' ') + 1);
}

}  // namespace zlt
