#pragma once

#include <string_view>

#include "parameters/DeviceCopy.h"
#include "parameters/ParameterTable.h"

namespace zlt {

/// The screen that shows the set, as the rules see it.
class ParameterView {
 public:
    virtual ~ParameterView() = default;

    /// What all controls hold, Latin-1. Throws what names the field, with the cursor in it, for a
    /// text that no wire and no file can carry.
    [[nodiscard]] virtual ParameterValues values() const = 0;
    virtual void showField(ParameterField field, const std::string& text) = 0;

    /// Disables a control, its state as it is, because the firmware lacks the parameter.
    virtual void disable(ParameterField field) = 0;

    enum class Activity { none, reading, writing, storing };
    /// A transfer begins that takes its time, or comes to its message. Paints at once.
    virtual void showActivity(Activity activity) = 0;

    /// The controller has said something new: marks on what differs, and what is not stored.
    virtual void showDeviceCopy(const DeviceCopy& copy) = 0;
    /// What there is to say of the last transfer, in one line (UTF-8); nothing when empty.
    virtual void showOutcome(std::string_view line) = 0;
    /// A file's values stand on the screen now.
    virtual void showOpened(const ParameterValues& values) = 0;
};

}  // namespace zlt
