#pragma once

#include "platform/Files.h"

namespace zlt {

/// Files by Qt, written under another name and then put in place.
class QtFiles final : public Files {
 public:
    std::optional<std::string> read(const std::filesystem::path& file, std::size_t limit) override;
    std::optional<std::string> writeWhole(const std::filesystem::path& file,
                                          std::string_view bytes) override;
};

}  // namespace zlt
