#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "link/BusLog.h"
#include "link/Port.h"
#include "platform/Files.h"
#include "platform/Gate.h"
#include "platform/ProgramEnd.h"
#include "platform/System.h"

namespace zlt {

/// What every screen needs of the world outside. All of it outlives the screens.
struct Services {
    Gate& gate;
    Waits& waits;
    Files& files;
    HelpViewer& help;
    ProgramEnd& programEnd;
    Processes& processes;
    /// The folder of the executable, which holds the external tools' folder. Empty when its name
    /// is no valid text.
    std::filesystem::path ownFolder;
    /// The user's own data folder for this program, which need not exist yet. Empty when there is
    /// none.
    std::filesystem::path dataFolder = {};
    /// Makes the port object that a screen owns.
    std::function<std::unique_ptr<Port>()> makePort;
    /// The exchanges of all screens; never null.
    std::shared_ptr<BusLog> busLog = std::make_shared<BusLog>();
};

}  // namespace zlt
