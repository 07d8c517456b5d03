#include "platform/Files.h"

namespace zlt {
namespace {

bool hasWildcard(const std::string& name) {
    return name.find('*') != std::string::npos;
}

}  // namespace

std::filesystem::path pathFromUtf8(std::string_view name) {
    return std::u8string(name.begin(), name.end());
}

std::string utf8FromPath(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

std::optional<std::filesystem::path> chooseSaveName(Gate& gate, const FileChoice& choice,
                                                    std::string_view emptyNameMessage) {
    const auto name = gate.chooseToSave(choice);
    if (name && name->empty() && !emptyNameMessage.empty())
        gate.message(emptyNameMessage);
    if (!name || name->empty() || hasWildcard(*name))
        return std::nullopt;
    return pathFromUtf8(*name);
}

std::optional<std::filesystem::path> chooseOpenName(Gate& gate, const FileChoice& choice) {
    const auto name = gate.chooseToOpen(choice);
    if (!name || name->empty() || hasWildcard(*name))
        return std::nullopt;
    return pathFromUtf8(*name);
}

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
