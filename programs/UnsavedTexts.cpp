#include "programs/UnsavedTexts.h"

#include <chrono>
#include <string>
#include <system_error>
#include <utility>

#include "platform/Files.h"

namespace zlt {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view nameBegin = "unsaved-";
constexpr std::string_view nameEnd = ".txt";

/// A name that no other run has; later ones sort after earlier ones.
fs::path newName(const fs::path& folder) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    auto number = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    for (;; ++number) {
        fs::path file = folder / (std::string(nameBegin) + std::to_string(number));
        file += nameEnd;
        std::error_code unknown;
        if (!fs::exists(file, unknown))
            return file;
    }
}

}  // namespace

UnsavedTexts::UnsavedTexts(Files& files, fs::path dataFolder)
    : m_files(files), m_folder(std::move(dataFolder)) {}

std::optional<WriteFailure> UnsavedTexts::keep(std::string_view text) {
    if (m_folder.empty())
        return WriteFailure{WriteFailure::Kind::noAccess, "this user has no data folder"};
    std::error_code failure;
    fs::create_directories(m_folder, failure);
    const fs::path file = m_own.empty() ? newName(m_folder) : m_own;
    auto notKept = m_files.writeWhole(file, text);
    if (!notKept)
        m_own = file;
    return notKept;
}

void UnsavedTexts::forget() {
    std::error_code ignored;
    if (!m_own.empty())
        fs::remove(m_own, ignored);
    m_own.clear();
}

std::optional<fs::path> UnsavedTexts::left() const {
    std::optional<fs::path> latest;
    std::error_code failure;
    for (fs::directory_iterator at(m_folder, failure), end; !failure && at != end;
         at.increment(failure)) {
        const std::string name = utf8FromPath(at->path().filename());
        const bool kept = name.starts_with(nameBegin) && name.ends_with(nameEnd);
        if (kept && at->path() != m_own && (!latest || *latest < at->path()))
            latest = at->path();
    }
    return latest;
}

}  // namespace zlt
