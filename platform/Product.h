#pragma once

#include <string_view>

namespace zlt {

/// The controllers' model, in titles and for the external tools.
inline constexpr std::string_view controllerModel = "ZLT-R-NX-42";

}  // namespace zlt
