#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/Files.h"

namespace zlt {

/// Program texts that no file of the operator's holds, UTF-8, kept in the user's own data folder:
/// this run's and those that earlier runs left. Each has a name of its own, so that two panels side
/// by side keep both.
class UnsavedTexts {
 public:
    /// `dataFolder` is made when there is something to keep. `files` outlives this.
    UnsavedTexts(Files& files, std::filesystem::path dataFolder);

    /// Keeps `text` as this run's, in place of what it kept before. Returns why that failed.
    std::optional<WriteFailure> keep(std::string_view text);
    /// This run's text is saved, or dropped.
    void forget();
    /// This run's text is one of those that are left from now on: another one takes its place.
    void leave() { m_own.clear(); }

    /// The latest text that another run, or leave(), has left; nothing when there is none.
    [[nodiscard]] std::optional<std::filesystem::path> left() const;

 private:
    Files& m_files;
    std::filesystem::path m_folder;
    std::filesystem::path m_own;  ///< empty while nothing is kept
};

}  // namespace zlt
