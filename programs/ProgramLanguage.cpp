#include "programs/ProgramLanguage.h"

#include <algorithm>
#include <array>

namespace zlt {
namespace {

constexpr std::array<std::u16string_view, 5> flowWords{u"END", u"ENDWHILE", u"PRG", u"WAITX",
                                                       u"WHILE"};
/// Jog and the homings: the sign after them is the direction, and without it they are none.
constexpr std::array<std::u16string_view, 6> directedMoves{u"H", u"HL", u"J", u"L", u"Z", u"ZH"};
/// The move to a position, which follows at once.
constexpr std::u16string_view positionMove = u"X";

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool isWordSign(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
}

bool isSign(char16_t c) {
    return c == u'+' || c == u'-';
}

template <class Words>
bool isOneOf(const Words& words, std::u16string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// The length of what begins at the text's front and is made of such characters.
template <class Belongs>
std::size_t lengthOf(std::u16string_view text, const Belongs& belongs) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), belongs) -
                                    text.begin());
}

/// What a word and what follows it are.
struct Word {
    std::size_t length = 0;  ///< of the word with all that belongs to it
    std::size_t coloured = 0;
    TokenKind kind = TokenKind::flow;
};

Word wordAt(std::u16string_view text) {
    const std::size_t letters = lengthOf(text, isWordSign);
    const std::u16string_view word = text.substr(0, letters);
    const std::u16string_view after = text.substr(letters);
    const char16_t next = after.empty() ? u' ' : after.front();
    if (isOneOf(directedMoves, word) && isSign(next))
        return {letters + 1, letters + 1, TokenKind::move};
    const std::u16string_view number = isSign(next) ? after.substr(1) : after;
    if (word == positionMove && !number.empty() && isDigit(number.front()))
        return {letters, letters, TokenKind::move};
    if (isOneOf(flowWords, word) && !isDigit(next))
        return {letters, letters, TokenKind::flow};
    // A digit right after letters belongs to a name: V1, DO2.
    const auto inName = [](char16_t c) { return isWordSign(c) || isDigit(c); };
    return {lengthOf(text, inName), 0, TokenKind::flow};
}

}  // namespace

std::vector<Token> tokensOfLine(std::u16string_view line) {
    std::vector<Token> tokens;
    std::size_t at = 0;
    while (at < line.size()) {
        const std::u16string_view rest = line.substr(at);
        if (rest.front() == commentSign) {
            tokens.push_back({at, rest.size(), TokenKind::comment});
            break;
        }
        if (isDigit(rest.front())) {
            const auto inNumber = [](char16_t c) { return isDigit(c) || c == u'.'; };
            const std::size_t length = lengthOf(rest, inNumber);
            tokens.push_back({at, length, TokenKind::number});
            at += length;
        } else if (isWordSign(rest.front())) {
            const Word word = wordAt(rest);
            if (word.coloured > 0)
                tokens.push_back({at, word.coloured, word.kind});
            at += word.length;
        } else {
            ++at;
        }
    }
    return tokens;
}

}  // namespace zlt
