#pragma once

#include "link/serial/PortObstacle.h"

namespace Ui {
class SelectComForm;
}

namespace zlt {

/// Puts a port's report into the lines below the start-up screen's boxes.
void showPortReport(Ui::SelectComForm& ui, const PortReport& report);

}  // namespace zlt
