#pragma once

#include <filesystem>

namespace zlt {

/// Opens help files in whatever the desktop has for them.
class HelpViewer {
 public:
    virtual ~HelpViewer() = default;

    /// Opens `file` at its table of contents. A missing file, or a desktop that has no
    /// viewer for it, is reported to the operator by the viewer itself.
    virtual void openContents(const std::filesystem::path& file) = 0;
};

}  // namespace zlt
