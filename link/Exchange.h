#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <limits>
#include <string>

#include "link/Port.h"

namespace zlt {

/// When a reply is over.
enum class EndOfReply {
    atEndMark,  ///< at the carriage return, which is not part of the reply
    atSilence,  ///< at the first read that finds nothing; the last character is dropped
};

/// How a reply is read. The count of empty reads is the limit, not a clock: every character
/// starts it again, so a reply that trickles is waited for however long it takes.
struct ReadRule {
    EndOfReply end = EndOfReply::atEndMark;
    int emptyReadsAllowed = 100;                 ///< one more in a row is a time-out
    std::chrono::milliseconds emptyReadWait{1};  ///< ended early by a character
    /// So many characters without an end, or empty reads in all, are a time-out.
    std::size_t charactersAllowed = std::numeric_limits<std::size_t>::max();
    int emptyReadsInAllAllowed = std::numeric_limits<int>::max();
    int emptyReadsBefore = 0;  ///< where the count begins
};

enum class Ending { reply, timedOut, portLost };

/// What a read met, and for `Ending::reply` its text (possibly empty), header and all.
struct Reading {
    Ending ending = Ending::timedOut;
    std::string text;
    int emptyReadsAtEnd = 0;  ///< the count when the carriage return came
    int emptyReadsInAll = 0;
};

/// A reply's text is kept up to here while a line that never ends is waited for.
inline constexpr std::size_t replyTextKept = 64 * 1024;

/// Reads one reply. `onCharacter`, where given, sees each character that is kept as it comes.
Reading readReply(Port& port, const ReadRule& rule,
                  const std::function<void(char)>& onCharacter = {});

}  // namespace zlt
