#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zlt {

/// The words for a program state code, the reply to "SASTAT". Nothing for a code that has
/// none (3, say): the text shown so far stays then.
std::optional<std::string_view> programStateText(std::int32_t code);

}  // namespace zlt
