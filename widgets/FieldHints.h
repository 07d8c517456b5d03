#pragma once

#include <QCoreApplication>
#include <QLineEdit>
#include <QString>
#include <QWidget>

#include "link/Values.h"

namespace zlt {

/// Puts the cursor into a field and selects what stands there, to be typed over.
inline void pointToField(QLineEdit& field) {
    field.setFocus(Qt::OtherFocusReason);
    field.selectAll();
}

/// What a control lacks that the controller's firmware does not serve.
inline QString needsFirmware(FirmwareVersion needed, FirmwareVersion present) {
    return QCoreApplication::translate("Firmware",
                                       "Needs firmware V%1 or later; the controller has V%2.")
        .arg(needed.number)
        .arg(present.number);
}

/// Says something more in a control's tooltip, which goes on saying what the control does.
inline void addToToolTip(QWidget& control, const QString& sentence) {
    if (!control.toolTip().contains(sentence))
        control.setToolTip(control.toolTip() + QLatin1Char('\n') + sentence);
}

}  // namespace zlt
