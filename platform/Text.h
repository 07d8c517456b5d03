#pragma once

#include <string>
#include <string_view>

namespace zlt {

/// Whether a byte, Latin-1 or UTF-8, is a control character that no line should hold; a tab is not.
bool isControlCharacter(char c);

/// A text from outside in quotes, as messages name it: the front of one that is long, and "?" for
/// each control character.
std::string inQuotes(std::string_view utf8);

}  // namespace zlt
