#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zlt {

/// What is looked for in a text. UTF-16, as in the box, so that places are those of its cursor.
struct SearchRule {
    std::u16string words;
    bool matchCase = false;   ///< letters beyond Latin-1 always count as they are
    bool wholeWords = false;  ///< no letter, digit or underscore right before or after
};

/// Where the rule is met, in the text's order; none within another. Nothing for empty words.
std::vector<std::size_t> findAll(std::u16string_view text, const SearchRule& rule);

/// Which of the places comes next: the first at or after `from`, else the first of all. Nothing
/// when there is none. An index into `places`.
std::optional<std::size_t> nextPlace(const std::vector<std::size_t>& places, std::size_t from);
/// Which comes before: the last one before `from`, else the last of all.
std::optional<std::size_t> placeBefore(const std::vector<std::size_t>& places, std::size_t from);

}  // namespace zlt
