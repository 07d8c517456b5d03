#pragma once

#include <QCoreApplication>
#include <QString>

#include "link/Values.h"

namespace zlt {

/// The tooltip of a control that the controller's firmware does not serve.
inline QString needsFirmware(FirmwareVersion needed, FirmwareVersion present) {
    return QCoreApplication::translate("Firmware",
                                       "Needs firmware V%1 or later; the controller has V%2.")
        .arg(needed.number)
        .arg(present.number);
}

}  // namespace zlt
