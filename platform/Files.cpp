#include "platform/Files.h"

#include "platform/FileNames.h"

namespace zlt {

std::optional<std::string> FileContent::whole() const {
    return kind == Kind::whole ? std::optional(bytes) : std::nullopt;
}

std::string notRead(const std::filesystem::path& file, const FileContent& content) {
    return "File " + utf8FromPath(file) + " could not be read: " + content.reason + ".";
}

std::string notSaved(std::string_view what, const std::filesystem::path& file,
                     const WriteFailure& failure) {
    return std::string(what) + " could not be saved in " + utf8FromPath(file) + ": " +
           failure.reason + ".";
}

}  // namespace zlt
