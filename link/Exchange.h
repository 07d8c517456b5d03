#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

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

/// What a read met, and for `Ending::reply` its text (possibly empty), header and all; else what
/// came of it.
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

/// Ends every request and every reply.
inline constexpr char carriageReturn = '\r';
/// Begins every controller's device name, "ZLD01" say.
inline constexpr std::string_view deviceNamePrefix = "ZLD";

/// One request line as it goes on the bus: "@", the two-digit device ID ("00" for all
/// controllers), the command as it stands, carriage return.
std::string frameRequest(std::string_view deviceId, std::string_view command);

/// A reply line without its header: one that begins with "#" loses that and the two
/// characters after it, any other is returned whole.
std::string_view ReplyHeaderStrip(std::string_view line);

/// What follows the prefix in a "DN" reply, `count` characters at the most: the two
/// digits of the device ID in a proper name. Whatever the reply is, it is not judged.
std::string_view afterDeviceNamePrefix(std::string_view reply, std::size_t count);

/// The two digits of the device ID in a "DN" reply; nothing for one that is no controller's name.
std::optional<std::string_view> deviceIdOfName(std::string_view reply);

/// Whether a "DN" reply is the name of one of our controllers.
bool isDeviceName(std::string_view reply);

/// What a reply can say of the wiring.
enum class LineFault {
    none,
    echo,       ///< the request itself came back
    zeroBytes,  ///< a zero byte in front, as a line that floats between messages gives
};

/// What this reply line to this request says, both as on the wire.
LineFault lineFaultIn(std::string_view request, std::string_view reply);

/// A sentence that says so and what to do, UTF-8; empty for none.
std::string_view lineFaultText(LineFault fault);

}  // namespace zlt
