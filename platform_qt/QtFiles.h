#pragma once

#include <QString>
#include <filesystem>

#include "platform/Files.h"

namespace zlt {

/// A path as Qt names files.
inline QString fromPath(const std::filesystem::path& path) {
    return QString::fromStdString(utf8FromPath(path));
}

/// Files by Qt, written under another name and then put in place; written over in place where the
/// folder takes no other name.
class QtFiles : public Files {
 public:
    FileContent read(const std::filesystem::path& file) override;
    std::optional<WriteFailure> writeWhole(const std::filesystem::path& file,
                                           std::string_view bytes) override;
};

}  // namespace zlt
