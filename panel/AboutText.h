#pragma once

#include <string_view>

namespace zlt {

/// The text of the information box. The firmware's number is left open and the list is the
/// same for every firmware; the break after the first line is a lone carriage return.
extern const std::string_view aboutText;

}  // namespace zlt
