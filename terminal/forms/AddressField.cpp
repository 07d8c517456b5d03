#include "terminal/forms/AddressField.h"

#include "platform/NumberConversion.h"
#include "platform/Text.h"
#include "widgets/FieldFocus.h"

namespace zlt {

std::optional<std::string> deviceAddress(std::string_view typed) {
    // Rounded, "-0.4" would be the broadcast, and "0.6" somebody's.
    const bool whole = typed.find_first_of("-.") == std::string_view::npos;
    const auto number = parseInteger(typed);
    if (!number || !whole || *number > 99)
        return std::nullopt;
    const std::string digits = std::to_string(*number);
    return digits.size() == 1 ? "0" + digits : digits;
}

std::optional<std::string> readAddress(QLineEdit& field, Gate& gate) {
    const std::string typed = field.text().toStdString();
    auto address = deviceAddress(typed);
    if (!address) {
        gate.message(inQuotes(typed) +
                     " in the field \"Device ID\" is not an address from 0 to 99.  "
                     "Nothing was sent.");
        pointToField(field);
    }
    return address;
}

}  // namespace zlt
