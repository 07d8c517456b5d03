#include "terminal/VariableWatch.h"

#include <utility>

#include "platform/Text.h"

namespace zlt {

VariableWatch::VariableWatch(const Services& services, const LinkHandOver& handOver,
                             std::function<void()> commLost)
    : link(services, flavours::variables, this), m_commLost(std::move(commLost)) {
    link.takeOver(handOver);
}

VariableReading VariableWatch::refresh() {
    const AskedBy refreshing(link.busLog(), Asker::poll);
    m_ended = !link.CommOK();
    VariableReading reading;
    for (std::size_t index = 0; index < variableCount; ++index) {
        const std::string query = "V" + std::to_string(index);
        if (link.CommOK())
            m_lastAsked = query;
        reading.values.at(index) = link.SendReceive(query);
    }
    reading.live = link.CommOK();
    return reading;
}

std::string VariableWatch::note() const {
    const std::string device = "device " + utf8FromLatin1(link.connection.deviceId);
    if (link.CommOK())
        return "Values of " + device;
    if (link.lossReported())
        return "Not reading: the port is lost.  Close this screen; the panel says more.";
    const std::string reopen = ".  Close, wait for Communication OK, open again.";
    return m_lastAsked.empty()
               ? "Not reading: no communication with " + device + reopen
               : "Not reading: no answer to " + m_lastAsked + " from " + device + reopen;
}

void VariableWatch::send(std::string_view address, std::string_view command) {
    link.converse({.deviceId = address, .command = command, .tellsLoss = false});
}

void VariableWatch::commChanged(bool connected) {
    if (!connected)
        m_commLost();
}

}  // namespace zlt
