#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace zlt::sim {

/// "\r", "\n", "\0", "\\" and "\xHH" become the bytes they name; any other text stays as it is.
std::string unescaped(std::string_view text);
/// The other way: everything that does not print becomes one of the above.
std::string escaped(std::string_view bytes);
/// The first word, and the rest without the blanks between.
std::pair<std::string_view, std::string_view> firstWord(std::string_view text);

}  // namespace zlt::sim
