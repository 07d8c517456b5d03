#pragma once

#include <filesystem>
#include <string>

#include "link/serial/PortDirectory.h"
#include "platform/Files.h"

namespace zlt {

/// Which adapter stood behind each port number when the panel was last connected, for each folder
/// that it is started in: numbers close up when an adapter is missing.
class PortMemory {
 public:
    /// `dataFolder` is the user's own and is made when there is something to remember; with an
    /// empty one nothing is remembered. `files` outlives the memory.
    PortMemory(Files& files, const std::filesystem::path& dataFolder);

    /// Remembers what stands behind a port. A device that cannot be known again is left out.
    void remember(PortNumber number, const PortEntry& entry);

    /// A sentence when another adapter stood behind this port last time; else empty.
    std::string change(PortNumber number, const PortEntry& entry);

 private:
    struct Remembered {
        std::string place;    ///< port and folder
        std::string adapter;  ///< as PortEntry::adapter
    };
    /// All that the file says, the latest last. Read once.
    std::vector<Remembered>& all();

    Files& m_files;
    std::filesystem::path m_file;
    std::optional<std::vector<Remembered>> m_all;
};

}  // namespace zlt
