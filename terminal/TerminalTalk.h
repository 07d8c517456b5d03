#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "link/ScreenLink.h"

namespace zlt {

/// The commands sent so far, to be walked through from the newest back. What stands in the
/// entry line at first is kept at the near end of the walk.
class CommandHistory {
 public:
    /// Adds a command and ends the walk. The same one again in a row is kept once.
    void add(const std::string& command);

    /// Ends the walk where it is: the next one starts from the newest.
    void endWalk() { m_place = m_commands.size(); }

    /// The command before the one shown; `shown` itself at the far end.
    std::string older(const std::string& shown);
    /// The command after the one shown, then what stood in the line before the walk.
    std::string newer(const std::string& shown);

 private:
    std::vector<std::string> m_commands;
    std::size_t m_place = 0;  ///< one past the newest while no older one is shown
    std::string m_draft;
};

/// What was typed into the field "Device ID" is no address. what() is the sentence for the
/// operator, UTF-8.
class BadAddress : public std::runtime_error {
 public:
    explicit BadAddress(std::string_view typed);
};

/// The two-digit address that a typed one stands for: "5" is "05". Throws BadAddress for what is
/// no whole number from 0 to 99.
std::string deviceAddress(std::string_view typed);

/// Sends `command` to `address` (two digits; "00" is all devices and brings no reply) and writes
/// both sides down, a line each, a missing reply and a lost port too. `write` takes each piece as
/// it comes (Latin-1), the characters of a reply one by one.
void talkInTranscript(ScreenLink& link, std::string_view address, std::string_view command,
                      const std::function<void(std::string_view)>& write);

/// What a box that shows the last reply only does while a conversation goes on.
struct ReplyBoxSteps {
    std::function<void()> written;                    ///< the request is out: the entry is taken
    std::function<void(std::string_view)> replyGrew;  ///< so much of it has come, Latin-1
};

/// Sends `command` to `address`, as it stands, and returns what the box is to show then, Latin-1:
/// the reply alone, or a word of the panel's own in place of it. A controller that is asked by hand
/// is given more time.
std::string talkInReplyBox(ScreenLink& link, std::string_view address, std::string_view command,
                           const ReplyBoxSteps& steps);

/// A transcript as it is saved: its last line ended, and one line end more.
std::string savedTranscript(std::string transcript);

}  // namespace zlt
