#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

namespace zlt {

/// Plain waits. They block the one thread and pump no events.
class Waits {
 public:
    virtual ~Waits() = default;

    /// Returns after `time` has passed, give or take the system's granularity.
    virtual void sleep(std::chrono::milliseconds time) = 0;
};

/// How a program that was started came to its end.
struct ProcessEnd {
    enum class Kind { exited, crashed, notStarted };

    Kind kind = Kind::notStarted;
    std::string reason = {};  ///< why it could not be started, in the system's words, UTF-8
    /// The last 64 KiB of what it printed, errors included, UTF-8. Empty on Windows, where a tool
    /// has a window of its own.
    std::string printed = {};
};

/// Other programs.
class Processes {
 public:
    virtual ~Processes() = default;

    /// Told the process number of a program once it runs.
    using Started = std::function<void(std::int64_t process)>;

    /// The file of a program that is named without the ending that this system gives programs.
    [[nodiscard]] virtual std::filesystem::path fileOf(const std::filesystem::path& program) const {
        return program;
    }

    /// Starts `program`, a file, by its path alone, without arguments and without a shell, in the
    /// panel's own current directory, and returns when it has ended, however long that takes.
    /// No events are pumped meanwhile. The exit code is not looked at.
    virtual ProcessEnd runAndWait(const std::filesystem::path& program, const Started& started) = 0;
};

/// Opens help files in whatever the desktop has for them.
class HelpViewer {
 public:
    virtual ~HelpViewer() = default;

    /// Opens `file` at its table of contents. A missing file, or a desktop that has no
    /// viewer for it, is reported to the operator by the viewer itself.
    virtual void openContents(const std::filesystem::path& file) = 0;
};

}  // namespace zlt
