#include "terminal/TerminalTalk.h"

#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

constexpr std::string_view broadcastAddress = "00";
constexpr std::string_view broadcastSent = "BROADCAST SENT!";
constexpr std::string_view noReply = "NO REPLY!";
constexpr std::string_view comPortError = "Com Port Error";
constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view replyMark = "<";

constexpr int patientEmptyReads = 500;

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}

/// What stands in place of a reply, or after the part of it that came.
std::string_view instead(Ending ending, bool broadcast) {
    if (ending == Ending::portLost)
        return comPortError;
    if (ending == Ending::timedOut)
        return noReply;
    return broadcast ? broadcastSent : std::string_view();
}

}  // namespace

void CommandHistory::add(const std::string& command) {
    if (m_commands.empty() || m_commands.back() != command)
        m_commands.push_back(command);
    endWalk();
}

std::string CommandHistory::older(const std::string& shown) {
    if (m_place == 0)
        return shown;
    if (m_place == m_commands.size())
        m_draft = shown;
    return m_commands[--m_place];
}

std::string CommandHistory::newer(const std::string& shown) {
    if (m_place == m_commands.size())
        return shown;
    ++m_place;
    return m_place == m_commands.size() ? m_draft : m_commands[m_place];
}

BadAddress::BadAddress(std::string_view typed)
    : std::runtime_error(inQuotes(typed) +
                         " in the field \"Device ID\" is not an address from 0 to 99.  "
                         "Nothing was sent.") {}

std::string deviceAddress(std::string_view typed) {
    // Rounded, "-0.4" would be the broadcast, and "0.6" device 01.
    const bool whole = typed.find_first_of("-.") == std::string_view::npos;
    const auto number = parseInteger(typed);
    if (!number || !whole || *number > 99)
        throw BadAddress(typed);
    const std::string digits = std::to_string(*number);
    return digits.size() == 1 ? "0" + digits : digits;
}

void talkInTranscript(ScreenLink& link, std::string_view address, std::string_view command,
                      const std::function<void(std::string_view)>& write) {
    const bool broadcast = address == broadcastAddress;
    bool marked = false;
    write(joined({">@", address, command, lineEnd}));
    const Ending ending = link.converse(
        {.deviceId = address,
         .command = command,
         .readsReply = !broadcast,
         .settled =
             [&] {
                 write(replyMark);
                 marked = true;
             },
         .character = [&](char character) { write(std::string_view(&character, 1)); }});
    if (!marked)
        write(replyMark);
    write(joined({instead(ending, broadcast), lineEnd}));
}

std::string talkInReplyBox(ScreenLink& link, std::string_view address, std::string_view command,
                           const ReplyBoxSteps& steps) {
    const bool broadcast = address == broadcastAddress;
    std::string reply;
    const Ending ending = link.converse({.deviceId = address,
                                         .command = command,
                                         .readsReply = !broadcast,
                                         .emptyReadsAllowed = patientEmptyReads,
                                         .written = steps.written,
                                         .character = [&](char character) {
                                             reply += character;
                                             steps.replyGrew(reply);
                                         }});
    const std::string_view text = instead(ending, broadcast);
    return text.empty() ? reply : std::string(text);
}

std::string savedTranscript(std::string transcript) {
    if (!transcript.ends_with('\n'))
        transcript += lineEnd;
    transcript += lineEnd;
    return transcript;
}

}  // namespace zlt
