#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zlt {

/// The commands sent so far, to be walked through from the newest back. What stands in the
/// entry line at first is kept at the near end of the walk.
class CommandHistory {
 public:
    /// Adds a command and ends the walk. The same one again in a row is kept once.
    void add(const std::string& command);

    /// Ends the walk where it is: the next one starts from the newest.
    void endWalk() { m_place = m_commands.size(); }

    /// The command before the one shown; `shown` itself at the far end.
    std::string older(const std::string& shown);
    /// The command after the one shown, then what stood in the line before the walk.
    std::string newer(const std::string& shown);

 private:
    std::vector<std::string> m_commands;
    std::size_t m_place = 0;  ///< one past the newest while nobody walks
    std::string m_draft;
};

}  // namespace zlt
