#include "ctl/CommandGate.h"

namespace zlt::ctl {

bool CommandGate::ask(std::string_view, std::string_view text) {
    if (!yes)
        m_declined.emplace_back(text);
    return yes;
}

void CommandGate::tell(Output& output, bool asErrors) {
    for (const std::string& text : m_messages)
        if (asErrors)
            output.error(text);
        else
            output.note(text);
    m_messages.clear();
}

}  // namespace zlt::ctl
