#pragma once

#include <optional>
#include <stdexcept>
#include <string>

namespace zlt {

/// The boxes that the direct commands read.
enum class PanelField { speed, acceleration, position, syncPosition };

/// What stands in the boxes of the "Control" frame at a click, UTF-8.
struct MotionFields {
    std::string speed;
    std::string acceleration;
    std::string position;
};

/// When the synchronisation output is on, by the number after "SYNC=".
enum class SyncCondition { equal = 1, lessThan = 2, greaterThan = 3 };

/// What is selected and typed for the synchronisation output at a click, UTF-8.
struct SyncFields {
    std::optional<SyncCondition> condition;  ///< nothing when none is selected
    std::string position;
};

/// A box's text cannot be used. what() is a sentence that names the box, UTF-8.
class BadField : public std::runtime_error {
 public:
    BadField(PanelField field, const std::string& sentence)
        : std::runtime_error(sentence), m_field(field) {}

    PanelField field() const { return m_field; }

 private:
    PanelField m_field;
};

}  // namespace zlt
