#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zlt {

class ReadOut;

/// The words for a program state code, the reply to "SASTAT". Nothing for a code that has
/// none (3, say): the text shown so far stays then.
std::optional<std::string_view> programStateText(std::int32_t code);

/// Shows such a text; one of a program that runs or has failed stands out.
void showProgramState(ReadOut& readOut, std::string_view text);

}  // namespace zlt
