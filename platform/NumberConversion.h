#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zlt {

/// A text that should have been a whole number and is not, or is out of range. what() is a
/// sentence for the operator, UTF-8.
class ConversionError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The one reading of numbers, for replies and typed text alike: blanks, a sign, decimal
/// digits and a fraction ("-12.5"), rounded half to even, within 32 bits signed. Nothing when
/// the text is anything else ("", "12abc", "1,5", "nan", "1e3").
std::optional<std::int32_t> parseInteger(std::string_view text);

/// As parseInteger(), for a reply that must be a number. Throws ConversionError naming
/// `command` and the reply (both Latin-1, as on the wire).
std::int32_t replyToInteger(std::string_view command, std::string_view reply);

/// What a field's text is as a number, or else the sentence for the operator.
struct TypedNumber {
    std::optional<std::int32_t> number;
    std::string fault;
};

/// As parseInteger(), for a text that was typed or pasted: tabs and line ends around the number do
/// not count either. `label` is the field's own, both UTF-8.
TypedNumber parseTyped(std::string_view label, std::string_view text);

}  // namespace zlt
