#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zlt {

/// Whether a byte, Latin-1 or UTF-8, is a control character that no line should hold; a tab is not.
bool isControlCharacter(char c);

/// A text from outside in quotes, as messages name it: the front of one that is long, and "?" for
/// each control character.
std::string inQuotes(std::string_view utf8);

/// A character that the wire and the files cannot carry. what() names it, UTF-8.
class NotLatin1 : public std::runtime_error {
 public:
    /// `codePoint` is the Unicode number of the character, `line` where it stands in a text of
    /// several lines, from 1; 0 for a single field.
    explicit NotLatin1(char32_t codePoint, int line = 0);
};

/// A control character where none may be: a pasted text may bring one along unseen, a carriage
/// return above all, which ends a command and begins another. what() is a sentence, UTF-8.
class ControlCharacter : public std::runtime_error {
 public:
    ControlCharacter();
};

/// A field's text (UTF-8) as it goes into a line of a file. Throws NotLatin1 naming the first
/// character that cannot, and ControlCharacter for a line end.
std::string wireText(std::string_view utf8);

/// The same for a text that goes into a command: throws ControlCharacter for any of them.
std::string commandText(std::string_view utf8);

/// The same for a text of several lines, ended by CR LF, whatever characters they hold; NotLatin1
/// names the line too.
std::string wireLines(std::string_view utf8);

/// Text of the wire or of a file (one byte a character) as UTF-8.
std::string utf8FromLatin1(std::string_view latin1);

/// The UTF-8 form of one Unicode character.
std::string utf8FromCodePoint(char32_t codePoint);

/// The lines of a file's text, without their ends. CR LF, LF and CR each end a line; text
/// after the last end is a line too.
std::vector<std::string> splitLines(std::string_view text);

}  // namespace zlt
