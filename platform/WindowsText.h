#pragma once

#include <string>

namespace zlt {

/// What Windows calls one of its errors (GetLastError()), in its user's language, UTF-8; without an
/// end, to stand within a sentence. Its number where it has no words for it.
std::string windowsErrorText(unsigned long error);

}  // namespace zlt
