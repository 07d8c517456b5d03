#pragma once

#include <cstddef>
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
/// or when it is empty, which is then told by `emptyNameMessage`, if there is one.
std::optional<std::filesystem::path> chooseSaveName(Gate& gate, const FileChoice& choice,
                                                    std::string_view emptyNameMessage);
/// Asks which file to open; it need not exist. Nothing when the operator cancelled, and for a name
/// that is empty or holds a "*".
std::optional<std::filesystem::path> chooseOpenName(Gate& gate, const FileChoice& choice);

/// Nothing that the panel reads comes near this; a file beyond it is none of ours, or a tool ran
/// wild.
inline constexpr std::size_t longestFile = 16 * 1024 * 1024;

/// What the reading of a file came to.
struct FileContent {
    enum class Kind {
        whole,
        brokenOff,   ///< the system failed on the way
        unreadable,  ///< the system gives nothing of it
        absent,      ///< there is nothing of this name
        tooLarge,    ///< beyond longestFile: nothing of it was read
        notAFile     ///< a folder, a pipe or a device: not even opened
    };

    Kind kind = Kind::absent;
    std::string bytes;   ///< everything; of one that broke off what came before; else empty
    std::string reason;  ///< why it is not whole, UTF-8, to stand after a colon

    /// The bytes of a whole file; nothing of any other.
    [[nodiscard]] std::optional<std::string> whole() const;
    /// Whether it was turned down here, where the system might have given something.
    [[nodiscard]] bool refused() const { return kind == Kind::tooLarge || kind == Kind::notAFile; }
};

/// Why a file was not written.
struct WriteFailure {
    enum class Kind { noAccess, failed };

    Kind kind = Kind::failed;  ///< noAccess: it can be neither created nor opened for writing
    std::string reason;        ///< UTF-8, to stand after a colon
};

/// Whole files in and out, as bytes. Never waits for what is no file.
class Files {
 public:
    virtual ~Files() = default;

    /// Reads `file` whole, or tells why that cannot be.
    virtual FileContent read(const std::filesystem::path& file) = 0;

    /// Writes `bytes` as the whole of `file`, or leaves the file as it was. Returns why that
    /// failed, nothing when all of it is on the disk.
    virtual std::optional<WriteFailure> writeWhole(const std::filesystem::path& file,
                                                   std::string_view bytes) = 0;
};

/// The sentence for a file that was not read whole.
std::string notRead(const std::filesystem::path& file, const FileContent& content);
/// The sentence for `what` (a noun with its article, UTF-8) that is not in a file.
std::string notSaved(std::string_view what, const std::filesystem::path& file,
                     const WriteFailure& failure);

}  // namespace zlt
