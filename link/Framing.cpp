#include "link/Framing.h"

#include <algorithm>

namespace zlt {
namespace {

constexpr std::size_t deviceIdLength = 2;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::string frameRequest(std::string_view deviceId, std::string_view command) {
    std::string request;
    request.reserve(deviceId.size() + command.size() + 2);
    request += '@';
    request += deviceId;
    request += command;
    request += carriageReturn;
    return request;
}

std::string_view ReplyHeaderStrip(std::string_view line) {
    constexpr std::size_t headerLength = 3;
    if (line.starts_with('#'))
        line.remove_prefix(std::min(headerLength, line.size()));
    return line;
}

std::string_view behindDeviceNamePrefix(std::string_view reply, std::size_t count) {
    return reply.substr(std::min(deviceNamePrefix.size(), reply.size()), count);
}

std::optional<std::string_view> deviceIdOfName(std::string_view reply) {
    const std::string_view digits = behindDeviceNamePrefix(reply, deviceIdLength);
    const bool complete = digits.size() == deviceIdLength && std::ranges::all_of(digits, isDigit);
    return isDeviceName(reply) && complete ? std::optional(digits) : std::nullopt;
}

bool isDeviceName(std::string_view reply) {
    return reply.starts_with(deviceNamePrefix);
}

}  // namespace zlt
