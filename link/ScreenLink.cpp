#include "link/ScreenLink.h"

#include "link/Exchange.h"
#include "platform/Text.h"

namespace zlt {
namespace {

/// What callers get in place of a reply.
constexpr std::string_view noAnswer = "0";

}  // namespace

ScreenLink::ScreenLink(const Services& services, const Flavour& flavour, LinkListener* listener)
    : m_services(services),
      m_flavour(flavour),
      m_listener(listener),
      MSComm1(services.makePort()),
      m_talk(*MSComm1, *services.busLog) {}

bool ScreenLink::openPort() {
    m_lossReported = false;
    return MSComm1->open(connection.port, connection.baudRate);
}

void ScreenLink::takeOver(const LinkHandOver& handOver) {
    connection = handOver.connection;
    notes = handOver.notes;
    m_portReady = handOver.PortReady;
    setCommOK(handOver.CommOK);
}

void ScreenLink::openHandedOverPort() {
    m_portReady = m_portReady && openPort();
}

void ScreenLink::setCommOK(bool connected) {
    m_commOk = connected;
    if (m_listener)
        m_listener->commChanged(connected);
}

void ScreenLink::endProgram(int exitCode) {
    MSComm1->close();
    m_services.programEnd.endProgram(exitCode);
}

std::string ScreenLink::SendReceive(std::string_view command) {
    return told(exchange(command), command);
}

void ScreenLink::sendAll(const std::vector<std::string>& commands) {
    std::vector<std::pair<std::string_view, Exchanged>> failed;
    for (const std::string& command : commands)
        if (const Exchanged exchanged = exchange(command); exchanged.failure)
            failed.emplace_back(command, exchanged);
    for (const auto& [command, exchanged] : failed)
        if (!m_lossReported)
            fail(*exchanged.failure, command, exchanged.ending);
}

std::string ScreenLink::receive(std::string_view command) {
    return told(read(command), command);
}

/// One exchange with nothing told and no flag changed.
ScreenLink::Exchanged ScreenLink::exchange(std::string_view command) {
    if (m_lossReported || (m_flavour.onlyWhileConnected && !m_commOk))
        return {std::string(noAnswer)};

    m_lineFault = LineFault::none;
    if (!m_talk.ask(connection, connection.deviceId, command))
        return {{}, &m_flavour.onPortLost, Ending::portLost};
    if (const auto wait = settlingWait(m_flavour.waits, command); wait.count() > 0)
        m_services.waits.sleep(wait);
    return read(command);
}

ScreenLink::Exchanged ScreenLink::read(std::string_view command) {
    const Reading reading = m_talk.read({.end = m_flavour.endOfReply});
    if (reading.ending == Ending::portLost)
        return {{}, &m_flavour.onPortLost, Ending::portLost};
    if (reading.ending == Ending::timedOut)
        return {{}, &m_flavour.onTimeOut, Ending::timedOut};
    m_lineFault = lineFaultIn(frameRequest(connection.deviceId, command), reading.text);
    if (m_flavour.endOfReply == EndOfReply::atSilence)
        return {reading.text};

    const std::string_view reply = ReplyHeaderStrip(reading.text);
    const bool mayBeEmpty =
        m_flavour.emptyReply == EmptyReply::returned || command.starts_with("SA");
    if (reply.empty() && !mayBeEmpty)
        return {{}, &m_flavour.onEmptyReply, Ending::reply};
    notes->noteReply(connection, command, reply);
    if (m_listener)
        m_listener->replied(command, reply);
    return {std::string(reply)};
}

/// The reply, or what stands in its place once the failure has been told.
std::string ScreenLink::told(const Exchanged& exchanged, std::string_view command) {
    if (exchanged.failure)
        return fail(*exchanged.failure, command, exchanged.ending);
    return exchanged.reply;
}

Ending ScreenLink::converse(const RawRequest& request) {
    const auto call = [](const std::function<void()>& hook) {
        if (hook)
            hook();
    };
    const auto lost = [&] {
        if (request.tellsLoss)
            fail(m_flavour.onPortLost, request.command, Ending::portLost);
        return Ending::portLost;
    };
    if (!m_talk.ask(connection, request.deviceId, request.command))
        return lost();
    call(request.written);
    if (const auto wait = settlingWait(longProgramWaits, request.command); wait.count() > 0)
        m_services.waits.sleep(wait);
    call(request.settled);
    if (!request.readsReply) {
        m_talk.endWithoutReply();
        return Ending::reply;
    }
    const Reading reading =
        m_talk.read({.emptyReadsAllowed = request.emptyReadsAllowed}, request.character);
    if (reading.ending == Ending::reply)
        notes->noteReply({connection.port, connection.baudRate, std::string(request.deviceId)},
                         request.command, ReplyHeaderStrip(reading.text));
    return reading.ending == Ending::portLost ? lost() : reading.ending;
}

std::string ScreenLink::fail(const Reaction& reaction, std::string_view command, Ending ending) {
    const bool lost = ending == Ending::portLost;
    m_lossReported = lost;
    const auto clearFlags = [&] {
        if (lost)
            m_portReady = false;
        setCommOK(false);
    };
    // Where the program goes on, what the screen shows is dimmed before the message comes.
    if (!reaction.endsProgram)
        clearFlags();
    if (!reaction.message.empty()) {
        std::string text(reaction.message);
        if (reaction.appended == Reaction::Appended::command)
            text += utf8FromLatin1(command);
        else if (reaction.appended == Reaction::Appended::portError)
            text += MSComm1->errorText();
        m_services.gate.message(text);
    }

    if (reaction.endsProgram)
        clearFlags();
    if (m_listener) {
        if (lost)
            m_listener->portLost();
        else
            m_listener->exchangeTimedOut();
    }
    if (!reaction.secondMessage.empty())
        m_services.gate.message(reaction.secondMessage);
    if (reaction.endsProgram)
        endProgram(1);
    return std::string(noAnswer);
}

}  // namespace zlt
