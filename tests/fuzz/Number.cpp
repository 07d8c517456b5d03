// Number conversion beside another that rounds by the fraction's text.

#include <algorithm>
#include <limits>

#include "Check.h"
#include "platform/NumberConversion.h"

namespace zlt::fuzz {
namespace {

bool allDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<std::int32_t> reference(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    std::string fraction(point == text.size() ? "0" : text.substr(point + 1));
    if (!allDigits(whole) || !allDigits(fraction))
        return {};
    const std::size_t zeros = std::min(whole.find_first_not_of('0'), whole.size() - 1);
    if (whole.size() - zeros > 10)
        return {};
    long long number = std::stoll(std::string(whole.substr(zeros)));
    fraction.resize(fraction.find_last_not_of('0') + 1);
    number += fraction > "5" || (fraction == "5" && number % 2 != 0) ? 1 : 0;
    number = negative ? -number : number;
    using Limits = std::numeric_limits<std::int32_t>;
    if (number < Limits::min() || number > Limits::max())
        return {};
    return static_cast<std::int32_t>(number);
}

void checkNumber(const std::string& text) {
    const auto number = parseInteger(text);
    ZLT_CHECK(number == reference(text));
    try {
        ZLT_CHECK(replyToInteger("PX", text) == number);
    } catch (const ConversionError& error) {
        ZLT_CHECK(!number);
        ZLT_CHECK(isUtf8(error.what()));
        ZLT_CHECK(std::string_view(error.what()).size() < 300);
    }
}

}  // namespace

void check(std::string_view input) {
    std::string text(input);
    checkNumber(text);
    // The same bytes as characters that numbers are made of.
    constexpr std::string_view numeric = "0123456789555999000 +-.";
    for (char& c : text)
        c = numeric[static_cast<unsigned char>(c) % numeric.size()];
    checkNumber(text);
}

}  // namespace zlt::fuzz
