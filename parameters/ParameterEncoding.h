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
    bool offered = true;  ///< false for a word of the controller's that the screen cannot show
};

/// The word whose bits the fields are; a field that is not "1" is a bit clear.
std::int32_t wordOf(const ParameterValues& values, FieldRange fields);
/// The fields by a word's bits; the bits above them are ignored.
std::vector<FieldText> fieldsOfWord(std::int32_t word, FieldRange fields);

/// What a reply makes of the parameter's fields. Throws ConversionError, naming command and
/// reply, where a number is expected and the reply is none.
std::vector<FieldText> fieldsOfReply(const Parameter& parameter, std::string_view reply);

/// The command that writes the parameter. Nothing for a baud rate that has no code.
std::optional<std::string> writeCommand(const Parameter& parameter, const ParameterValues& values);

}  // namespace zlt
