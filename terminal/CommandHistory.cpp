#include "terminal/CommandHistory.h"

namespace zlt {

void CommandHistory::add(const std::string& command) {
    if (m_commands.empty() || m_commands.back() != command)
        m_commands.push_back(command);
    endWalk();
}

std::string CommandHistory::older(const std::string& shown) {
    if (m_place == 0)
        return shown;
    if (m_place == m_commands.size())
        m_draft = shown;
    return m_commands[--m_place];
}

std::string CommandHistory::newer(const std::string& shown) {
    if (m_place == m_commands.size())
        return shown;
    ++m_place;
    return m_place == m_commands.size() ? m_draft : m_commands[m_place];
}

}  // namespace zlt
