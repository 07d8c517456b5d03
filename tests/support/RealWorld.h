#pragma once

#include "link/QtSerialPort.h"
#include "platform_qt/ThreadWaits.h"
#include "support/World.h"

namespace zlt::test {

/// A world whose ports and waits are real: the port list leads to pseudo-terminals.
struct RealWorld : World {
    ThreadWaits realWaits;
    Services real{.gate = gate,
                  .waits = realWaits,
                  .files = files,
                  .help = help,
                  .programEnd = programEnd,
                  .processes = tools,
                  .ownFolder = {},
                  .makePort = [this](QObject* owner) {
                      return std::make_unique<QtSerialPort>(directory, owner);
                  }};
};

}  // namespace zlt::test
