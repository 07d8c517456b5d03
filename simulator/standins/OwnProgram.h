#pragma once

#include <filesystem>

namespace zlt::standins {

/// The file of the running program. Throws std::filesystem::filesystem_error when that cannot be
/// told.
std::filesystem::path ownProgram();

}  // namespace zlt::standins
