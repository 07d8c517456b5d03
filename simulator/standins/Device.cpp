#include "simulator/standins/Device.h"

#include "link/Exchange.h"
#include "platform/NumberConversion.h"
#include "simulator/standins/Listing.h"

namespace zlt::standins {
namespace {

/// The longest line takes a quarter of a second at 9600 baud before the controller can answer.
constexpr ReadRule patientRule{.emptyReadsAllowed = 1000};
/// A line that babbles would be read for ever.
constexpr std::size_t longestReply = 1024;

/// Garbage must not bring line ends into a result file.
std::string quoted(const std::string& reply) {
    return "\"" + codeOfLine(reply) + "\"";
}

}  // namespace

Device::Device(PortNumber port, const std::string& baudRate, std::string deviceId)
    : m_id(std::move(deviceId)) {
    if (!m_port->open(port, baudRate)) {
        throw Failure(portText(port) + " at " + baudRate +
                      " baud cannot be opened: " + m_port->errorText() + ".");
    }
    if (const std::string reply = ask("DN"); reply != name())
        throw Failure("not " + name() + " but " + quoted(reply) + " answers.");
}

std::string Device::name() const {
    return std::string(deviceNamePrefix) + m_id;
}

void Device::clear() {
    order("SAPC", "the program memory cannot be cleared");
}

void Device::write(const Lines& code) {
    clear();
    for (std::size_t line = 0; line < code.size(); ++line) {
        const std::string number = std::to_string(line);
        order("SAPW" + number + "=" + code[line],
              "the program is not whole, the program memory does not take " + number);
    }
}

Lines Device::read() {
    const std::string count = ask("SAPN");
    const auto lines = parseInteger(count);
    if (!lines || *lines < 0)
        throw Failure("the length of the program cannot be read: " + quoted(count) + ".");
    Lines code;
    for (int line = 0; line < *lines; ++line) {
        const std::string reply = ask("SAPR" + std::to_string(line));
        if (!reply.starts_with(':'))
            throw Failure("the program cannot be read: " + quoted(reply) + ".");
        code.push_back(reply.substr(1));
    }
    return code;
}

std::string Device::ask(const std::string& command) {
    std::size_t characters = 0;
    const auto count = [&characters](char) {
        if (++characters > longestReply)
            throw Failure("characters without an end come in.");
    };
    Reading reading{Ending::portLost, {}};
    if (m_port->write(frameRequest(m_id, command)))
        reading = readReply(*m_port, patientRule, count);
    if (reading.ending == Ending::portLost)
        throw Failure("the port is lost: " + m_port->errorText() + ".");
    if (reading.ending == Ending::timedOut)
        throw Failure(name() + " does not answer.");
    return std::string(ReplyHeaderStrip(reading.text));
}

void Device::order(const std::string& command, const std::string& what) {
    if (const std::string reply = ask(command); reply != "OK")
        throw Failure(what + ": " + quoted(reply) + ".");
}

}  // namespace zlt::standins
