#pragma once

#include <QString>
#include <filesystem>

#include "platform/FileNames.h"

namespace zlt {

/// A path as Qt names files.
inline QString fromPath(const std::filesystem::path& path) {
    return QString::fromStdString(utf8FromPath(path));
}

}  // namespace zlt
