#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>

#include "support/FormDriver.h"

namespace zlt::test {

/// Types a command into an entry line and presses Enter.
inline void enter(QWidget& form, const char* line, const char* command) {
    control<QLineEdit>(form, line).setText(QString::fromUtf8(command));
    press(form, line, Qt::Key_Return);
}

}  // namespace zlt::test
