#pragma once

#include <QLineEdit>

namespace zlt {

/// Puts the cursor into a field and selects what stands there, to be typed over.
inline void pointToField(QLineEdit& field) {
    field.setFocus(Qt::OtherFocusReason);
    field.selectAll();
}

}  // namespace zlt
