#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace zlt {

/// A character that the wire and the files cannot carry. what() names it, UTF-8.
class NotLatin1 : public std::runtime_error {
 public:
    /// `codePoint` is the Unicode number of the character, `line` where it stands in a text of
    /// several lines, from 1; 0 for a single field.
    explicit NotLatin1(char32_t codePoint, int line = 0);
};

/// Text of the wire or of a file (one byte a character) as UTF-8.
std::string utf8FromLatin1(std::string_view latin1);

/// The UTF-8 form of one Unicode character.
std::string utf8FromCodePoint(char32_t codePoint);

}  // namespace zlt
