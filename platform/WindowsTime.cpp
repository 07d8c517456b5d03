#include "platform/Moment.h"

namespace zlt {

std::tm localTime(std::time_t time) {
    std::tm local{};
    localtime_s(&local, &time);
    return local;
}

}  // namespace zlt
