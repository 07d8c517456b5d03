#include "programs/RunControl.h"

#include "platform/NumberConversion.h"

namespace zlt {

void RunControl::StopProg_Click() {
    m_link.SendReceive("SR=0");
    m_sendMotionCommand("ABORT");
}

bool RunControl::setRunOnBoot(bool on) {
    m_link.SendReceive(on ? "SLOAD=1" : "SLOAD=0");
    return replyToInteger("SLOAD", m_link.SendReceive("SLOAD")) > 0;
}

}  // namespace zlt
