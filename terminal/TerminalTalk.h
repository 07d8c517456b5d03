#pragma once

#include <string>
#include <string_view>

#include "link/ScreenLink.h"

namespace zlt {

/// Shows a conversation as it goes on. All texts Latin-1, as on the wire.
class TranscriptView {
 public:
    virtual ~TranscriptView() = default;

    /// Adds text at the end and paints it at once: what follows blocks.
    virtual void add(std::string_view text) = 0;
    /// Adds one character of a reply that is coming in.
    virtual void grow(char character) = 0;
};

/// Sends `command` to `address` (two digits; "00" is all devices and brings no reply) and
/// writes both sides down, a line each, a missing reply and a lost port too.
void talkInTranscript(ScreenLink& link, std::string_view address, std::string_view command,
                      TranscriptView& view);

/// Shows the last reply only.
class ReplyBoxView {
 public:
    virtual ~ReplyBoxView() = default;

    /// The request is out: the entry is taken, the last reply is past.
    virtual void requestWritten() = 0;
    /// Adds one character of a reply that is coming in.
    virtual void growReply(char character) = 0;
    /// No more comes: all of the reply is to stand now.
    virtual void replyEnded() = 0;
    /// Shows a word of the panel's own, a missing reply say; what came of one goes.
    virtual void showInsteadOfReply(std::string_view text) = 0;
};

/// Sends `command` to `address`, as it stands, and shows the reply alone. A controller that is
/// asked by hand is given more time.
void talkInReplyBox(ScreenLink& link, std::string_view address, std::string_view command,
                    ReplyBoxView& view);

/// A transcript as it is saved: its last line ended, and one line end more.
std::string savedTranscript(std::string transcript);

}  // namespace zlt
