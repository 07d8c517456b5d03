// Number conversion beside a slow one that reckons with the digits as texts.

#include <algorithm>
#include <string>

#include "platform/NumberConversion.h"
#include "tests/fuzz/Check.h"

namespace {

using zlt::parseInteger;

/// Whether the digits of one number, without leading zeros, are more than those of another.
bool isMore(const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() > b.size() : a > b;
}

std::string oneMore(std::string digits) {
    std::size_t place = digits.size();
    while (place > 0 && digits[place - 1] == '9')
        digits[--place] = '0';
    if (place == 0)
        return "1" + digits;
    ++digits[place - 1];
    return digits;
}

bool allDigits(const std::string& text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string rounded(std::string whole, const std::string& fraction) {
    std::string half(fraction.size(), '0');
    if (!half.empty())
        half[0] = '5';
    const bool odd = (whole.back() - '0') % 2 != 0;
    if (!fraction.empty() && (fraction > half || (fraction == half && odd)))
        whole = oneMore(whole);
    const std::size_t leading = std::min(whole.find_first_not_of('0'), whole.size() - 1);
    return whole.substr(leading);
}

/// The number in the usual writing, "-12"; empty for a text that is none.
std::string reference(std::string text) {
    while (!text.empty() && text.front() == ' ')
        text.erase(0, 1);
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (negative || text.front() == '+'))
        text.erase(0, 1);
    const std::size_t point = text.find('.');
    const std::string whole = text.substr(0, point);
    const std::string fraction = point == std::string::npos ? "" : text.substr(point + 1);
    if (!allDigits(whole) || (point != std::string::npos && !allDigits(fraction)))
        return {};
    const std::string number = rounded(whole, fraction);
    if (isMore(number, negative ? "2147483648" : "2147483647"))
        return {};
    return negative && number != "0" ? "-" + number : number;
}

void check(const std::string& text) {
    const auto number = parseInteger(text);
    const std::string expected = reference(text);
    ZLT_CHECK((number ? std::to_string(*number) : "") == expected);
    if (number)
        ZLT_CHECK(parseInteger(expected) == number);
    try {
        ZLT_CHECK(zlt::replyToInteger("PX", text) == number);
    } catch (const zlt::ConversionError& error) {
        ZLT_CHECK(!number);
        ZLT_CHECK(zlt::fuzz::isUtf8(error.what()));
        ZLT_CHECK(std::string_view(error.what()).size() < 300);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(zlt::fuzz::textOf(data, size));
    check(text);
    // The same bytes as characters that numbers are made of.
    constexpr std::string_view numeric = "0123456789555999000 +-.";
    std::string likeANumber;
    for (const char c : text)
        likeANumber += numeric[static_cast<unsigned char>(c) % numeric.size()];
    check(likeANumber);
    return 0;
}
