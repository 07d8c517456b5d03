#include "programs/RunControl.h"

#include "platform/NumberConversion.h"

namespace zlt {

std::optional<ProgramState> programStateOfCode(std::int32_t code) {
    switch (code) {
        case 0:
            return ProgramState::idle;
        case 1:
            return ProgramState::running;
        case 2:
            return ProgramState::paused;
        case 4:
            return ProgramState::errored;
        default:
            return std::nullopt;
    }
}

ShownState shownState(ProgramState state) {
    switch (state) {
        case ProgramState::running:
            return {"Running", Meaning::underWay};
        case ProgramState::paused:
            return {"Paused", Meaning::atRest};
        case ProgramState::errored:
            return {"Errored", Meaning::atFault};
        case ProgramState::idle:
            break;
    }
    return {"Idle", Meaning::atRest};
}

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
        return std::nullopt;  // the "0" stands for no reply
    return replyToInteger("SLOAD", reply) > 0;
}

}  // namespace zlt
