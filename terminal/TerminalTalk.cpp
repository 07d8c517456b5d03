#include "terminal/TerminalTalk.h"

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

/// What stands in place of a reply, or behind the part of it that came.
std::string_view instead(Ending ending, bool broadcast) {
    if (ending == Ending::portLost)
        return comPortError;
    if (ending == Ending::timedOut)
        return noReply;
    return broadcast ? broadcastSent : std::string_view();
}

}  // namespace

void talkInTranscript(ScreenLink& link, std::string_view address, std::string_view command,
                      TranscriptView& view) {
    const bool broadcast = address == broadcastAddress;
    bool marked = false;
    view.add(joined({">@", address, command, lineEnd}));
    const Ending ending = link.converse({.deviceId = address,
                                         .command = command,
                                         .readsReply = !broadcast,
                                         .settled =
                                             [&] {
                                                 view.add(replyMark);
                                                 marked = true;
                                             },
                                         .character = [&](char c) { view.grow(c); }});
    if (!marked)
        view.add(replyMark);
    view.add(joined({instead(ending, broadcast), lineEnd}));
}

void talkInReplyBox(ScreenLink& link, std::string_view address, std::string_view command,
                    ReplyBoxView& view) {
    const bool broadcast = address == broadcastAddress;
    const Ending ending = link.converse({.deviceId = address,
                                         .command = command,
                                         .readsReply = !broadcast,
                                         .emptyReadsAllowed = patientEmptyReads,
                                         .written = [&] { view.requestWritten(); },
                                         .character = [&](char c) { view.growReply(c); }});
    const std::string_view text = instead(ending, broadcast);
    if (text.empty())
        view.replyEnded();
    else
        view.showInsteadOfReply(text);
}

std::string savedTranscript(std::string transcript) {
    if (!transcript.ends_with('\n'))
        transcript += lineEnd;
    transcript += lineEnd;
    return transcript;
}

}  // namespace zlt
