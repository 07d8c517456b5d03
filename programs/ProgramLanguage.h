#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace zlt {

// What the editor knows of the language of standalone programs, for its colours and its comment key
// alone: what is compiled, and what is an error, the external compiler says.

/// What a part of a program line is.
enum class TokenKind {
    comment,  ///< from the comment sign to the line's end
    number,
    flow,  ///< a word that says where the program goes on, or when
    move   ///< a command that moves the axis
};

/// A part of a program line that has a colour of its own; what is between them is plain.
struct Token {
    std::size_t begin = 0;
    std::size_t length = 0;
    TokenKind kind = TokenKind::comment;

    bool operator==(const Token&) const = default;
};

inline constexpr char16_t commentSign = u';';

/// The tokens of one program line, in their order. Words count as the controller spells them, in
/// capitals. UTF-16, so that places are those of the box.
std::vector<Token> tokensOfLine(std::u16string_view line);

}  // namespace zlt
