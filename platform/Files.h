#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zlt {

/// Whole files in and out, as bytes.
class Files {
 public:
    virtual ~Files() = default;

    /// The first `limit` bytes of `file`; nothing when it does not exist or cannot be read.
    virtual std::optional<std::string> read(const std::filesystem::path& file,
                                            std::size_t limit) = 0;

    /// Writes `bytes` as the whole of `file`, or leaves the file as it was. Returns the
    /// system's reason (UTF-8) when that fails, nothing when it worked.
    virtual std::optional<std::string> writeWhole(const std::filesystem::path& file,
                                                  std::string_view bytes) = 0;
};

}  // namespace zlt
