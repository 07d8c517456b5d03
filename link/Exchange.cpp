#include "link/Exchange.h"

#include <algorithm>

namespace zlt {
namespace {

Reading endedBySilence(std::string text) {
    if (text.empty())
        return {Ending::timedOut, {}};
    text.pop_back();
    return {Ending::reply, std::move(text)};
}

}  // namespace

Reading readReply(Port& port, const ReadRule& rule, const std::function<void(char)>& onCharacter) {
    const bool byLine = rule.end == EndOfReply::atEndMark;
    std::string text;
    std::size_t characters = 0;
    int emptyReads = rule.emptyReadsBefore;
    int emptyReadsInAll = 0;
    for (;;) {
        char character = 0;
        switch (port.read(character)) {
            case PortInput::lost:
                return {Ending::portLost, std::move(text)};
            case PortInput::character:
                if (byLine && character == carriageReturn)
                    return {Ending::reply, std::move(text), emptyReads, emptyReadsInAll};
                emptyReads = 0;
                if (++characters > rule.charactersAllowed)
                    return {Ending::timedOut, std::move(text)};
                if (text.size() < replyTextKept) {
                    text += character;
                    if (onCharacter)
                        onCharacter(character);
                }
                break;
            case PortInput::nothing:
                if (!byLine)
                    return endedBySilence(std::move(text));
                if (port.waitForInput(rule.emptyReadWait) == PortInput::lost)
                    return {Ending::portLost, std::move(text)};
                if (++emptyReads > rule.emptyReadsAllowed ||
                    ++emptyReadsInAll > rule.emptyReadsInAllAllowed)
                    return {Ending::timedOut, std::move(text)};
                break;
        }
    }
}

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

std::string_view afterDeviceNamePrefix(std::string_view reply, std::size_t count) {
    return reply.substr(std::min(deviceNamePrefix.size(), reply.size()), count);
}

std::optional<std::string_view> deviceIdOfName(std::string_view reply) {
    constexpr std::size_t deviceIdLength = 2;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const std::string_view digits = afterDeviceNamePrefix(reply, deviceIdLength);
    const bool complete = digits.size() == deviceIdLength && std::ranges::all_of(digits, isDigit);
    return isDeviceName(reply) && complete ? std::optional(digits) : std::nullopt;
}

bool isDeviceName(std::string_view reply) {
    return reply.starts_with(deviceNamePrefix);
}

LineFault lineFaultIn(std::string_view request, std::string_view reply) {
    if (reply.starts_with('\0'))
        return LineFault::zeroBytes;
    if (request.ends_with(carriageReturn))
        request.remove_suffix(1);
    return reply == request ? LineFault::echo : LineFault::none;
}

std::string_view lineFaultText(LineFault fault) {
    switch (fault) {
        case LineFault::none:
            break;
        case LineFault::echo:
            return "The adapter echoes: the request itself came back as the reply.  Switch the "
                   "adapter's echo off.";
        case LineFault::zeroBytes:
            return "The reply began with a zero byte: the line floats between messages.  See to "
                   "its biasing and termination.";
    }
    return {};
}

}  // namespace zlt
