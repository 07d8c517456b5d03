#pragma once

#include <filesystem>

namespace zlt {

/// The folder of the executable, links resolved; empty when its name is no valid text.
std::filesystem::path ownFolder();

/// The user's own data folder for this program, which need not exist yet.
std::filesystem::path dataFolder();

}  // namespace zlt
