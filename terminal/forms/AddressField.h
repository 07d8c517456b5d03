#pragma once

#include <QLineEdit>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Gate.h"

namespace zlt {

/// The two-digit address that a typed one stands for: "5" is "05". Nothing when it is no number
/// from 0 to 99.
std::optional<std::string> deviceAddress(std::string_view typed);

/// The address typed into `field`. Nothing when it is malformed, which the operator has been
/// told then, the cursor in the field.
std::optional<std::string> readAddress(QLineEdit& field, Gate& gate);

}  // namespace zlt
