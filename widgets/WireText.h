#pragma once

#include <QString>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zlt {

/// A control character where none may be: a pasted text may bring one along unseen, a carriage
/// return above all, which ends a command and begins another. what() is a sentence, UTF-8.
class ControlCharacter : public std::runtime_error {
 public:
    ControlCharacter();
};

/// Text of the wire or of a file, one byte a character, as a widget shows it.
QString shownText(std::string_view wire);

/// A field's text as it goes into a line of a file. Throws NotLatin1 naming the first
/// character that cannot, and ControlCharacter for a line end.
std::string wireText(const QString& shown);

/// The same for a text that goes into a command: throws ControlCharacter for any of them.
std::string commandText(const QString& shown);

/// The same for a text of several lines, ended by CR LF, whatever characters they hold; NotLatin1
/// names the line too.
std::string wireLines(const QString& shown);

/// A typed or pasted text less one line end at its end.
QString withoutLineEnd(const QString& shown);

/// UTF-8 text, as messages and the system's own words are, for a widget.
QString fromUtf8(std::string_view text);

}  // namespace zlt
