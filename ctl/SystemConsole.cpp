#include "ctl/SystemConsole.h"

#include "ctl/LineEntry.h"

namespace zlt::ctl {

SystemConsole::~SystemConsole() = default;

std::optional<std::string> SystemConsole::readLine(std::string_view prompt) {
    const bool byHand = !prompt.empty() && isTerminal(Stream::input) && isTerminal(Stream::output);
    if (!byHand)
        return readPlainLine();
    if (!m_entry)
        m_entry = std::make_unique<LineEntry>([this] { return waitForInput(); },
                                              [this] { return readPlainLine(); });
    return m_entry->read(std::string(prompt));
}

}  // namespace zlt::ctl
