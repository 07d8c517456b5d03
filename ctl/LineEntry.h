#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zlt::ctl {

/// A line of a terminal that can be edited, with the lines before to walk through. Without libedit
/// it is what the terminal itself allows.
class LineEntry {
 public:
    /// `waitForKey` returns false when no more is to be read; `readPlain` reads a line where there
    /// is no libedit.
    LineEntry(std::function<bool()> waitForKey,
              std::function<std::optional<std::string>()> readPlain);
    ~LineEntry();
    LineEntry(const LineEntry&) = delete;
    LineEntry& operator=(const LineEntry&) = delete;

    /// The next line, UTF-8, without its end; nothing when there is none.
    std::optional<std::string> read(const std::string& prompt);

 private:
    struct Editor;

    std::function<bool()> m_waitForKey;
    std::function<std::optional<std::string>()> m_readPlain;
    std::unique_ptr<Editor> m_editor;
};

}  // namespace zlt::ctl
