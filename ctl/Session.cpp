#include "ctl/Session.h"

#include <algorithm>
#include <utility>

#include "link/serial/PortObstacle.h"
#include "parameters/ParameterDown.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt::ctl {
namespace {

/// Sets a value for as long as this stands.
class Meanwhile {
 public:
    Meanwhile(bool& place, bool value) : m_place(place), m_before(place) { place = value; }
    ~Meanwhile() { m_place = m_before; }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

 private:
    bool& m_place;
    bool m_before;
};

}  // namespace

void Heed::check() {
    const int number = held ? 0 : m_console.signalCaught();
    if (number != 0)
        m_programEnd.endProgram(128 + number);
}

bool isRefusal(std::string_view command, std::string_view reply) {
    const bool isSetting = command.find('=') != std::string_view::npos;
    return reply.starts_with('?') || (isSetting && reply != acknowledged);
}

Session::Session(const Services& services, PortDirectory& directory, Heed& heed, Target target)
    : link(services, *this),
      m_services(services),
      m_directory(directory),
      m_heed(heed),
      m_target(std::move(target)) {
    link.connection = m_target.connection;
}

void Session::open() {
    if (!link.openPort())
        throw Failure(ExitCode::port, portProblem());
    link.setPortReady(true);
    link.setCommOK(true);
}

void Session::identify() {
    open();
    const std::string deviceName = link.SendReceive("DN");
    if (!isDeviceName(deviceName))
        throw Failure(ExitCode::noReply, "What answers as " + name() +
                                             " is no controller: it calls itself " +
                                             inQuotes(utf8FromLatin1(deviceName)) + ".");
    link.firmware = firmwareVersion("VER", link.SendReceive("VER"));
}

void Session::runToTheEnd(const std::function<void()>& action) {
    const Meanwhile held(m_heed.held, true), goesOn(m_throws, false);
    action();
    throwNoted();
}

void Session::runUnjudged(const std::function<void()>& action) {
    const Meanwhile unjudged(m_judges, false), goesOn(m_throws, false);
    try {
        action();
    } catch (const Failure&) {
        throwNoted();  // what failed first is the reason
        throw;
    }
    throwNoted();
}

void Session::broadcast(const std::string& command) {
    link.converse({.deviceId = link.connection.deviceId, .command = command, .readsReply = false});
    letOut(command);
}

void Session::letOut(std::string_view command) {
    constexpr int bitsPerByte = 10, frameBytes = 4, adapterMs = 20;
    const int rate = std::max(1, parseInteger(link.connection.baudRate).value_or(1));
    const auto bytes = static_cast<int>(command.size()) + frameBytes;
    m_services.waits.sleep(
        std::chrono::milliseconds(bytes * bitsPerByte * 1000 / rate + adapterMs));
}

std::string Session::name() const {
    return "device " + utf8FromLatin1(link.connection.deviceId) + " on " + m_target.portName +
           " at " + utf8FromLatin1(link.connection.baudRate) + " baud";
}

void Session::exchangeTimedOut() {
    m_lastReply.clear();
    fail({ExitCode::noReply, "No reply from " + name() + "."});
}

void Session::portLost() {
    fail({ExitCode::port, "The port " + m_target.portName + " is lost."});
}

void Session::portNotTakenBack() {
    fail({ExitCode::port, portProblem()});
}

void Session::replied(std::string_view command, std::string_view reply) {
    m_lastReply = reply;
    if (!m_judges)
        return;
    if (const auto fault = lineFaultText(link.lineFault()); !fault.empty())
        fail({ExitCode::noReply, std::string(fault)});
    else if (isRefusal(command, reply))
        fail({ExitCode::refused, inQuotes(utf8FromLatin1(command)) +
                                     " was refused: " + inQuotes(utf8FromLatin1(reply)) + "."});
}

void Session::fail(const Failure& failure) {
    if (m_throws)
        throw Failure(failure);
    if (!m_noted)
        m_noted = failure;
}

void Session::throwNoted() {
    if (const auto noted = std::exchange(m_noted, std::nullopt))
        throw Failure(*noted);
}

std::string Session::portProblem() {
    const PortReport report = reportPort(examinePort(m_directory, link.connection.port));
    std::string sentence = "The port " + m_target.portName;
    if (!report.device.empty() && report.device != m_target.portName)
        sentence += " (" + report.device + ")";
    sentence += " cannot be opened.  " + report.problem;
    if (!report.command.empty())
        sentence += "  " + report.command;
    if (!m_directory.listProblem().empty())
        sentence += "  " + m_directory.listProblem();
    return sentence;
}

}  // namespace zlt::ctl
