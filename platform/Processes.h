#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

namespace zlt {

/// How a program that was started came to its end.
struct ProcessEnd {
    enum class Kind { exited, crashed, notStarted };

    Kind kind = Kind::notStarted;
    std::string reason = {};   ///< why it could not be started, in the system's words, UTF-8
    std::string printed = {};  ///< the last 64 KiB of what it printed, errors included, UTF-8
};

/// Other programs.
class Processes {
 public:
    virtual ~Processes() = default;

    /// Told the process number of a program once it runs.
    using Started = std::function<void(std::int64_t process)>;

    /// Starts `program` by its path alone, without arguments and without a shell, in the
    /// panel's own current directory, and returns when it has ended, however long that takes.
    /// No events are pumped meanwhile. The exit code is nobody's business.
    virtual ProcessEnd runAndWait(const std::filesystem::path& program, const Started& started) = 0;
};

}  // namespace zlt
