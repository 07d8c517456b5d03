#pragma once

#include <initializer_list>
#include <string>

#include "link/serial/PortObstacle.h"

namespace Ui {
class SelectComForm;
}

namespace zlt {

/// Puts a port's report into the lines below the start-up screen's boxes, and beside it what else
/// is to be said of the port, a sentence each; empty ones are left out.
void showPortReport(Ui::SelectComForm& ui, const PortReport& report,
                    std::initializer_list<std::string> remarks);

}  // namespace zlt
