#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zlt {

// What the editor's keys make of whole lines. UTF-16, as in the box; a line comes without its end.

using TextLines = std::vector<std::u16string>;

/// Makes comments of the lines, the signs one below the other; where all of them are comments it
/// takes the signs away. Empty lines stay as they are.
TextLines toggleComment(TextLines lines);

/// Puts `width` blanks in front of each line that is not empty.
TextLines indent(TextLines lines, std::size_t width);
/// Takes up to `width` blanks, or one tab, from the front of each line.
TextLines outdent(TextLines lines, std::size_t width);

/// How many blanks lead from the end of `before`, the front of a line, to the next stop.
std::size_t blanksToStop(std::u16string_view before, std::size_t width);

/// The blanks and tabs at a line's front.
std::u16string_view marginOf(std::u16string_view line);

}  // namespace zlt
