#pragma once

namespace zlt {

/// How much is left of what is painted and is no live value.
inline constexpr double dimmedOpacity = 0.4;

}  // namespace zlt
