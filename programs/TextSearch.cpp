#include "programs/TextSearch.h"

#include <algorithm>

namespace zlt {
namespace {

constexpr char16_t lastOfLatin1 = 0xFF;

/// The small letter, within Latin-1.
char16_t smallLetter(char16_t c) {
    const bool capital = (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
    return capital ? static_cast<char16_t>(c + 0x20) : c;
}

bool belongsToWord(char16_t c) {
    const bool letter = (smallLetter(c) >= u'a' && smallLetter(c) <= u'z') ||
                        (c >= 0xC0 && c <= lastOfLatin1 && c != 0xD7 && c != 0xF7);
    return letter || (c >= u'0' && c <= u'9') || c == u'_' || c == 0xB5;
}

std::u16string folded(std::u16string_view text, bool matchCase) {
    std::u16string same(text);
    if (!matchCase)
        std::transform(same.begin(), same.end(), same.begin(), smallLetter);
    return same;
}

bool standsAlone(std::u16string_view text, std::size_t begin, std::size_t length) {
    const std::size_t end = begin + length;
    return (begin == 0 || !belongsToWord(text[begin - 1])) &&
           (end == text.size() || !belongsToWord(text[end]));
}

}  // namespace

std::vector<std::size_t> findAll(std::u16string_view text, const SearchRule& rule) {
    std::vector<std::size_t> places;
    if (rule.words.empty())
        return places;
    const std::u16string whole = folded(text, rule.matchCase);
    const std::u16string words = folded(rule.words, rule.matchCase);
    std::size_t at = whole.find(words);
    while (at != std::u16string::npos) {
        const bool counts = !rule.wholeWords || standsAlone(text, at, words.size());
        if (counts)
            places.push_back(at);
        at = whole.find(words, at + (counts ? words.size() : 1));
    }
    return places;
}

std::optional<std::size_t> nextPlace(const std::vector<std::size_t>& places, std::size_t from) {
    if (places.empty())
        return std::nullopt;
    const auto next = std::lower_bound(places.begin(), places.end(), from);
    return next == places.end() ? 0 : static_cast<std::size_t>(next - places.begin());
}

std::optional<std::size_t> placeBefore(const std::vector<std::size_t>& places, std::size_t from) {
    if (places.empty())
        return std::nullopt;
    const auto next = std::lower_bound(places.begin(), places.end(), from);
    return static_cast<std::size_t>((next == places.begin() ? places.end() : next) -
                                    places.begin() - 1);
}

}  // namespace zlt
