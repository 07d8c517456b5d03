#include "simulator/Bus.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace zlt::sim {
namespace {

/// A client that asks without listening is not answered beyond this many bytes.
constexpr std::size_t mostOutgoing = 65536;
/// Babble at full speed would keep a core busy on an unpaced line.
constexpr Time babblePause = std::chrono::microseconds(300);
/// As with a real line, a client that writes faster than the wire is held up by its own buffer.
constexpr Time longestBacklog = std::chrono::milliseconds(250);
constexpr int bitsPerByte = 10;  // start, eight, stop

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string replyHeader(const Controller& controller) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02d", controller.id() % 100);
    return text;
}

}  // namespace

std::optional<RequestReader::Request> RequestReader::take(char byte) {
    if (byte == '@') {
        m_text.clear();
        m_started = true;
        return {};
    }
    if (!m_started)
        return {};
    if (byte != '\r') {
        m_text += byte;
        if (m_text.size() > longestRequest)
            reset();
        return {};
    }
    const std::string text = std::exchange(m_text, {});
    m_started = false;
    if (text.size() < 2 || !isDigit(text[0]) || !isDigit(text[1]))
        return {};
    return Request{(text[0] - '0') * 10 + (text[1] - '0'), text.substr(2)};
}

void RequestReader::reset() {
    m_text.clear();
    m_started = false;
}

Bus::Bus(std::vector<Controller> controllers, bool paced)
    : m_controllers(std::move(controllers)), m_paced(paced) {}

Time Bus::byteTime(long baud) const {
    return m_paced && baud > 0 ? Time(std::chrono::seconds(bitsPerByte)) / baud : Time{0};
}

void Bus::receive(std::string_view bytes, long baud, Time now) {
    m_requestEnd = std::max(m_requestEnd, now);
    for (const char byte : bytes) {
        m_requestEnd += byteTime(baud);
        if (const auto request = m_reader.take(byte))
            serve(*request, baud, now);
    }
}

std::optional<Time> Bus::deafUntil(Time now) const {
    const Time backlog = m_requestEnd - now;
    return backlog > longestBacklog ? std::optional{m_requestEnd - longestBacklog} : std::nullopt;
}

void Bus::serve(const RequestReader::Request& request, long baud, Time now) {
    if (m_listener) {
        char address[8];
        std::snprintf(address, sizeof address, "@%02d", request.id % 100);
        m_listener(now, false, address + request.command);
    }
    for (Controller& controller : m_controllers) {
        const bool broadcast = request.id == 0;
        if (controller.baud() != baud || (!broadcast && controller.id() != request.id))
            continue;
        const std::string answer = controller.execute(request.command, m_requestEnd);
        if (broadcast || m_faults.silent)
            continue;
        const std::string header = controller.namesItselfInReplies() ? replyHeader(controller) : "";
        send(spoiled(m_faults, request.command, header, answer, m_random), baud,
             m_requestEnd + m_faults.delay);
    }
}

void Bus::send(std::string_view bytes, long baud, Time earliest) {
    if (m_outgoing.size() + bytes.size() > mostOutgoing)
        return;
    const Time start = std::max(earliest, m_lineFree);
    if (m_listener)
        m_listener(start, true, bytes);
    const Time pause = std::max(byteTime(baud), m_faults.drip);
    Time when = start + byteTime(baud);
    for (const char byte : bytes) {
        m_outgoing.push_back({when, byte});
        m_lineFree = when;
        when += pause;
    }
}

std::string Bus::take(long baud, Time now) {
    std::string bytes;
    while (!m_outgoing.empty() && m_outgoing.front().when <= now) {
        bytes += m_outgoing.front().byte;
        m_outgoing.pop_front();
    }
    if (m_faults.babble && m_nextBabble <= now) {
        bytes += 'A';
        m_nextBabble = now + std::max({byteTime(baud), babblePause, m_faults.drip});
    }
    return bytes;
}

std::optional<Time> Bus::nextDue() const {
    std::optional<Time> due;
    if (!m_outgoing.empty())
        due = m_outgoing.front().when;
    if (m_faults.babble)
        due = std::min(due.value_or(m_nextBabble), m_nextBabble);
    return due;
}

void Bus::reset() {
    m_reader.reset();
    m_outgoing.clear();
    m_requestEnd = m_lineFree = Time{0};
}

void Bus::advance(Time now) {
    for (Controller& controller : m_controllers)
        controller.advance(now);
}

bool Bus::busy() const {
    return std::any_of(m_controllers.begin(), m_controllers.end(),
                       [](const Controller& controller) { return controller.busy(); });
}

}  // namespace zlt::sim
