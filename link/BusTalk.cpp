#include "link/BusTalk.h"

namespace zlt {

bool BusTalk::ask(const Connection& line, std::string_view deviceId, std::string_view command) {
    begin();
    m_record.port = static_cast<std::uint8_t>(line.port.value);
    m_record.baudRate.set(line.baudRate);
    m_record.deviceId.set(deviceId);
    m_record.command.set(command);
    if (m_port.write(frameRequest(deviceId, command)))
        return true;
    end(Outcome::portLost);
    return false;
}

Reading BusTalk::read(const ReadRule& rule, const std::function<void(char)>& onCharacter) {
    if (!m_underWay)
        begin();
    Reading reading = readReply(m_port, rule, onCharacter);
    m_record.reply.set(reading.text);
    switch (reading.ending) {
        case Ending::reply:
            if (rule.end == EndOfReply::atEndMark)
                m_record.reply.add(carriageReturn);
            end(Outcome::answered);
            break;
        case Ending::timedOut:
            end(Outcome::timedOut);
            break;
        case Ending::portLost:
            end(Outcome::portLost);
            break;
    }
    return reading;
}

void BusTalk::dropInput() {
    begin();
    m_record.deviceId.set({});  // nobody's
    bool any = false;
    for (char late = 0; m_port.read(late) == PortInput::character; any = true)
        m_record.reply.add(late);
    m_underWay = false;
    if (any)
        end(Outcome::dropped);
}

void BusTalk::begin() {
    const Moment now = m_log.now();
    m_begun = now.steady;
    m_record.begun = now.wall;
    m_record.asker = m_log.asker();
    m_record.command.set({});
    m_record.reply.set({});
    m_underWay = true;
}

void BusTalk::end(Outcome outcome) {
    m_underWay = false;
    m_record.outcome = outcome;
    m_record.taken =
        std::chrono::duration_cast<std::chrono::microseconds>(m_log.now().steady - m_begun);
    m_log.add(m_record);
}

}  // namespace zlt
