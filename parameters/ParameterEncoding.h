#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "parameters/ParameterTable.h"

namespace zlt {

/// A field and what it is to hold, Latin-1.
struct FieldText {
    ParameterField field;
    std::string text;
};

/// What a reply makes of the screen, and what it says of the controller.
struct ReplyFields {
    std::vector<FieldText> shown;
    /// Empty for a reply that says nothing: a number is expected and it is none, say.
    std::vector<FieldText> words;
};

/// The longest text that is sent, shown and kept in a file.
inline constexpr std::size_t longestParameterText = 32'767;

/// Why a text (Latin-1) can be in no command; nothing for one that can. UTF-8, to follow "it ".
std::optional<std::string> whyUnsendable(std::string_view text);

/// The word whose bits the fields are; a field that is not "1" is a bit clear.
std::int32_t wordOf(const ParameterValues& values, FieldRange fields);
/// The fields by a word's bits; the bits above them are ignored.
std::vector<FieldText> fieldsOfWord(std::int32_t word, FieldRange fields);

/// What a reply to the parameter's command makes of its fields.
ReplyFields fieldsOfReply(const Parameter& parameter, std::string_view reply);

/// A text that was sent, as the controller has it from then on: "9600" for " 09600".
std::string asTaken(ParameterField field, const std::string& text);

/// Whether two texts (UTF-8) stand for one value of the field: "09600" is 9600 too.
bool isSameValue(ParameterField field, std::string_view one, std::string_view other);

/// The command that writes the parameter. Nothing for a baud rate that has no code.
std::optional<std::string> writeCommand(const Parameter& parameter, const ParameterValues& values);

}  // namespace zlt
