#include "platform/NumberConversion.h"

#include <algorithm>
#include <limits>

#include "platform/Text.h"

namespace zlt {
namespace {

/// Far outside 32 bits and far inside 64: digits beyond it change nothing.
constexpr std::int64_t outOfRange = 1'000'000'000'000;

std::string_view takeDigits(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && text[count] >= '0' && text[count] <= '9')
        ++count;
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(count);
    return digits;
}

std::string_view without(std::string_view blanks, std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Whether a fraction of these digits takes `whole` to the next number away from zero.
bool roundsUp(std::string_view fraction, std::int64_t whole) {
    if (fraction.empty() || fraction.front() < '5')
        return false;
    const bool exactHalf =
        fraction.front() == '5' && fraction.find_first_not_of('0', 1) == std::string_view::npos;
    return !exactHalf || whole % 2 != 0;
}

/// The number in a text, however large; one that is far out of range stands for all such.
std::optional<std::int64_t> wholeNumber(std::string_view text) {
    text = without(" ", text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);

    const std::string_view digits = takeDigits(text);
    if (digits.empty())
        return std::nullopt;
    std::string_view fraction;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        fraction = takeDigits(text);
        if (fraction.empty())
            return std::nullopt;
    }
    if (!text.empty())
        return std::nullopt;

    std::int64_t whole = 0;
    for (const char digit : digits)
        whole = std::min(whole * 10 + (digit - '0'), outOfRange);
    if (roundsUp(fraction, whole))
        ++whole;
    return negative ? -whole : whole;
}

}  // namespace

std::optional<std::int32_t> parseInteger(std::string_view text) {
    const auto whole = wholeNumber(text);
    if (!whole || *whole < std::numeric_limits<std::int32_t>::min() ||
        *whole > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(*whole);
}

std::int32_t replyToInteger(std::string_view command, std::string_view reply) {
    if (const auto number = parseInteger(reply))
        return *number;
    throw ConversionError("The reply to the command " + utf8FromLatin1(command) +
                          " is not a number: " + inQuotes(utf8FromLatin1(reply)));
}

TypedNumber parseTyped(std::string_view label, std::string_view text) {
    const std::string_view bare = without(" \t\r\n", text);
    if (const auto number = parseInteger(bare))
        return {number, {}};
    const char* const wrong = wholeNumber(bare)
                                  ? "\" is out of range: from -2147483648 to 2147483647."
                                  : "\" is not a whole number from -2147483648 to 2147483647.";
    return {std::nullopt, inQuotes(bare) + " in the field \"" + std::string(label) + wrong};
}

}  // namespace zlt
