#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/System.h"

class QFileDevice;

namespace zlt {

/// The folder of the executable, links resolved; empty when its name is no valid text.
std::filesystem::path ownFolder();

/// The user's own data folder for this program, which need not exist yet.
std::filesystem::path dataFolder();

// What each system does in its own way

/// Waits that end within about a millisecond of their time.
std::unique_ptr<Waits> makeWaits();

std::unique_ptr<Processes> makeProcesses();

/// Brings what was flushed down to the disk: some tell only now that they are full. The system's
/// reason (UTF-8) when that failed; a disk that cannot be asked has taken it.
std::optional<std::string> synchronise(const QFileDevice& file);

}  // namespace zlt
