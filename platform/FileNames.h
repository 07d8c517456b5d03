#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Gate.h"

namespace zlt {

/// A file's path from a name in UTF-8, as dialogs return it, whatever the system's own encoding.
std::filesystem::path pathFromUtf8(std::string_view name);
/// A path for a message.
std::string utf8FromPath(const std::filesystem::path& path);

/// Asks under which name to save. Nothing when the operator cancelled, when the name holds a "*",
/// or when it is empty, which is then told by `emptyNameMessage`.
std::optional<std::filesystem::path> chooseSaveName(Gate& gate, const FileChoice& choice,
                                                    std::string_view emptyNameMessage);
/// Asks which file to open; it need not exist. Nothing when the operator cancelled, and for a name
/// that is empty or holds a "*".
std::optional<std::filesystem::path> chooseOpenName(Gate& gate, const FileChoice& choice);

}  // namespace zlt
