#include "programs/RunControl.h"

#include "platform/NumberConversion.h"

namespace zlt {

std::string runCommandText(RunCommand command, std::string_view thread) {
    return "SR" + std::string(thread) + "=" + std::to_string(static_cast<int>(command));
}

void RunControl::stop() {
    send(RunCommand::stop);
    m_sendMotionCommand("ABORT");
}

std::optional<bool> RunControl::setRunOnBoot(bool on) {
    m_link.SendReceive(on ? "SLOAD=1" : "SLOAD=0");
    const std::string reply = m_link.SendReceive("SLOAD");
    if (!m_link.CommOK())
        return std::nullopt;  // the "0" of a time-out is nobody's word
    return replyToInteger("SLOAD", reply) > 0;
}

}  // namespace zlt
