#pragma once

#include <filesystem>
#include <string>

namespace zlt {

/// How a program that was started came to its end.
struct ProcessEnd {
    enum class Kind { exited, crashed, notStarted };

    Kind kind = Kind::notStarted;
    std::string reason;  ///< why it could not be started, in the system's words, UTF-8
};

/// Other programs.
class Processes {
 public:
    virtual ~Processes() = default;

    /// Starts `program` by its path alone, without arguments and without a shell, in the
    /// panel's own current directory, and returns when it has ended, however long that takes.
    /// No events are pumped meanwhile. The exit code is nobody's business.
    virtual ProcessEnd runAndWait(const std::filesystem::path& program) = 0;
};

}  // namespace zlt
