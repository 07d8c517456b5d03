#include "link/ScreenLink.h"

#include "link/Framing.h"
#include "platform/Latin1.h"

namespace zlt {
namespace {

/// What callers get in place of a reply.
constexpr std::string_view noAnswer = "0";

}  // namespace

ScreenLink::ScreenLink(const Services& services, const Flavour& flavour, LinkListener* listener,
                       QObject* owner)
    : m_services(services),
      m_flavour(flavour),
      m_listener(listener),
      m_port(services.makePort(owner)) {}

bool ScreenLink::openPort() {
    m_lossReported = false;
    return m_port->open(connection.port, connection.baudRate + ",N,8,1");
}

void ScreenLink::takeOver(const LinkHandOver& handOver) {
    connection = handOver.connection;
    PortReady = handOver.PortReady;
    setCommOK(handOver.CommOK);
}

void ScreenLink::openHandedOverPort() {
    PortReady = PortReady && openPort();
}

void ScreenLink::setCommOK(bool connected) {
    m_commOk = connected;
    if (m_listener)
        m_listener->commChanged(connected);
}

void ScreenLink::endProgram(int exitCode) {
    m_port->close();
    m_services.programEnd.endProgram(exitCode);
}

std::string ScreenLink::SendReceive(std::string_view command) {
    if (m_lossReported || (m_flavour.onlyWhileConnected && !m_commOk))
        return std::string(noAnswer);

    m_lineFault = LineFault::none;
    const std::string request = frameRequest(connection.deviceId, command);
    if (!m_port->write(request))
        return fail(m_flavour.onPortLost, command, Ending::portLost);
    if (const auto wait = settlingWait(m_flavour.waits, command); wait.count() > 0)
        m_services.waits.sleep(wait);

    const Reading reading = readReply(*m_port, {.end = m_flavour.endOfReply});
    if (reading.ending == Ending::portLost)
        return fail(m_flavour.onPortLost, command, reading.ending);
    if (reading.ending == Ending::timedOut)
        return fail(m_flavour.onTimeOut, command, reading.ending);
    m_lineFault = lineFaultIn(request, reading.text);
    if (m_flavour.endOfReply == EndOfReply::atSilence)
        return reading.text;

    const std::string_view reply = ReplyHeaderStrip(reading.text);
    const bool mayBeEmpty =
        m_flavour.emptyReply == EmptyReply::returned || command.starts_with("SA");
    if (reply.empty() && !mayBeEmpty)
        return fail(m_flavour.onEmptyReply, command, reading.ending);
    return std::string(reply);
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
    if (!m_port->write(frameRequest(request.deviceId, request.command)))
        return lost();
    call(request.written);
    if (const auto wait = settlingWait(longProgramWaits, request.command); wait.count() > 0)
        m_services.waits.sleep(wait);
    call(request.settled);
    if (!request.readsReply)
        return Ending::reply;
    const Reading reading =
        readReply(*m_port, {.emptyReadsAllowed = request.emptyReadsAllowed}, request.character);
    return reading.ending == Ending::portLost ? lost() : reading.ending;
}

std::string ScreenLink::fail(const Reaction& reaction, std::string_view command, Ending ending) {
    const bool lost = ending == Ending::portLost;
    m_lossReported = lost;
    const auto clearFlags = [&] {
        if (lost)
            PortReady = false;
        setCommOK(false);
    };
    // Where the program goes on, what the screen shows is dimmed behind the message already.
    if (!reaction.endsProgram)
        clearFlags();
    if (!reaction.message.empty()) {
        std::string text(reaction.message);
        if (reaction.appended == Reaction::Appended::command)
            text += utf8FromLatin1(command);
        else if (reaction.appended == Reaction::Appended::portError)
            text += m_port->errorText();
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
