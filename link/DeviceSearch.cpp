#include "link/DeviceSearch.h"

#include <algorithm>
#include <bit>

#include "link/Exchange.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

constexpr int highestId = 9;

// Progress, in steps of the bar.
constexpr int perCheck = 30;
constexpr int perPort = 30;
constexpr int perRate = 10;
constexpr int perUsablePort = perPort + perRate * static_cast<int>(baudRates.size());

/// An instrument that streams must not hold the search.
constexpr std::size_t probeCharacters = 4096;
/// An instrument that streams slowly must not hold a probe either: about a second of waiting.
constexpr int probeEmptyReads = 500;

}  // namespace

std::string searchResultText(const Connection& device) {
    return std::to_string(device.port.value) + " Baud:" + device.baudRate +
           " ID:" + device.deviceId;
}

DeviceSearch::DeviceSearch(Port& port, BusLog& log, SearchMode mode, SearchView& view)
    : m_port(port), m_talk(port, log), m_mode(mode), m_view(view) {}

DeviceSearch::State DeviceSearch::step() {
    const State state = m_running ? makeStep() : State::over;
    if (state != State::running)
        m_port.close();
    return state;
}

DeviceSearch::State DeviceSearch::makeStep() {
    switch (m_step) {
        case Step::checkPort:
            return checkPort();
        case Step::nextPort:
            return nextPort();
        case Step::nextBaudRate:
            return nextBaudRate();
        case Step::probe:
            break;
    }
    return probe();
}

// Steps

DeviceSearch::State DeviceSearch::checkPort() {
    m_view.showText("Checking Port " + std::to_string(m_number.value));
    if (m_port.open(m_number, baudRates.front()))
        m_usablePorts |= 1U << (m_number.value - 1);
    m_port.close();
    const int checked = m_number.value++;
    if (checked == portCount) {
        m_number = {1};
        m_step = Step::nextPort;
    }
    advanceTo(checked * perCheck);
    return State::running;
}

DeviceSearch::State DeviceSearch::nextPort() {
    if (m_usablePorts == 0)
        return State::noPort;
    if (!usable())
        return goToNextPort();
    m_view.showText("Found Port " + std::to_string(m_number.value) + ".");
    m_ratesTried = 0;
    m_step = Step::nextBaudRate;
    advanceTo(m_progress + perPort);
    return State::running;
}

DeviceSearch::State DeviceSearch::goToNextPort() {
    m_port.close();
    ++m_number.value;
    m_step = Step::nextPort;
    return m_number.value > portCount ? State::over : State::running;
}

DeviceSearch::State DeviceSearch::leaveLostPort() {
    m_losses += portText(m_number) + " went away during the search (" + m_port.errorText() +
                ").  Plug the adapter in and search again.\r\n";
    return goToNextPort();
}

DeviceSearch::State DeviceSearch::nextBaudRate() {
    ++m_ratesTried;
    advanceTo(m_progress + perRate);
    const Connection place = here();
    m_view.showText("Trying Port " + std::to_string(m_number.value) + ", Baud:" + place.baudRate);
    if (!m_port.open(m_number, place.baudRate))
        return leaveLostPort();
    m_id = 1;
    m_step = Step::probe;
    return State::running;
}

DeviceSearch::State DeviceSearch::probe() {
    const Connection place = here();
    m_view.showText("Trying Port " + std::to_string(m_number.value) + ", Baud:" + place.baudRate +
                    " ID:" + place.deviceId);
    const bool answered = m_talk.ask(place, place.deviceId, "DN") && listen();
    if (answered)
        m_answered.push_back(place);
    if (answered && m_mode == SearchMode::firstFound) {
        m_found = place;
        return State::over;
    }
    if (answered) {
        m_results += "Found on Com Port:" + searchResultText(place) + "\r\n";
        m_view.showResults(m_results);
    }
    if (!m_port.isOpen())
        return leaveLostPort();
    if (++m_id > highestId) {
        m_port.close();
        if (m_ratesTried == baudRates.size())
            return goToNextPort();
        m_step = Step::nextBaudRate;
    }
    return State::running;
}

/// Reads lines until the line falls silent, or until a device answered and no more is wanted.
bool DeviceSearch::listen() {
    bool answered = false;
    ReadRule rule{.emptyReadsAllowed = 30,
                  .emptyReadWait = 2ms,
                  .charactersAllowed = probeCharacters,
                  .emptyReadsInAllAllowed = probeEmptyReads};
    while (rule.charactersAllowed > 0) {
        const Reading reading = m_talk.read(rule);
        if (reading.ending != Ending::reply)
            break;
        // After a find it goes on as if nothing had come, the count of empty reads too.
        const bool found = reading.text.find(deviceNamePrefix) != std::string::npos;
        rule.emptyReadsBefore = found ? reading.emptyReadsAtEnd : 0;
        answered = answered || found;
        if (found && m_mode == SearchMode::firstFound)
            break;
        rule.charactersAllowed -= std::min(rule.charactersAllowed, reading.text.size() + 1);
        rule.emptyReadsInAllAllowed -= reading.emptyReadsInAll;
    }
    return answered;
}

// What the steps share

bool DeviceSearch::usable() const {
    return (m_usablePorts >> (m_number.value - 1) & 1U) != 0;
}

Connection DeviceSearch::here() const {
    return {m_number, std::string(baudRates.at(m_ratesTried - 1)), "0" + std::to_string(m_id)};
}

void DeviceSearch::advanceTo(int progress) {
    m_progress = progress;
    m_view.showProgress(m_progress, m_progress + stillToCome());
}

/// What the bar has yet to go, as far as is known by now: the bar is full when the last rate of
/// the last port is under way.
int DeviceSearch::stillToCome() const {
    const auto count = [](std::uint32_t ports) { return std::popcount(ports); };
    if (m_step == Step::checkPort) {
        const int unchecked = portCount - m_number.value + 1;
        return unchecked * perCheck + (unchecked + count(m_usablePorts)) * perUsablePort;
    }
    const std::uint32_t ahead = m_usablePorts >> (m_number.value - 1);
    if (m_step == Step::nextPort)
        return count(ahead) * perUsablePort;
    const int ratesLeft = static_cast<int>(baudRates.size() - m_ratesTried);
    return count(ahead >> 1) * perUsablePort + ratesLeft * perRate;
}

}  // namespace zlt
