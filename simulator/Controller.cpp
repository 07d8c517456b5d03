#include "simulator/Controller.h"

#include <algorithm>

#include "simulator/Commands.h"

namespace zlt::sim {
namespace {

/// The variables from here on are kept in flash the moment they are written.
constexpr std::size_t firstKeptVariable = 16;
constexpr std::size_t longestEcho = 32;

std::string refusal(std::string_view command) {
    std::string text = "?";
    for (const char c : command.substr(0, longestEcho))
        text += c >= ' ' && c <= '~' ? c : '.';
    return text;
}

}  // namespace

Controller::Controller(const ControllerSetup& setup)
    : m_id(setup.id),
      m_firmware(setup.firmware),
      m_baud(setup.baud),
      m_product(setup.product),
      m_axis(setup.layout) {
    m_flash.id = setup.id;
    m_flash.baudCode = codeOfBaud(setup.baud);
    m_flash.nameInReplies = setup.nameInReplies ? 1 : 0;
    m_working = m_flash;
}

std::string Controller::execute(std::string_view command, Time now) {
    advance(now);
    auto answer = Commands::execute(*this, command);
    return answer ? *answer : refusal(command);
}

void Controller::advance(Time now) {
    m_now = std::max(m_now, now);
    m_axis.setLimitsDisabled(m_working.limitsDisabled != 0);
    m_axis.advance(m_now);
    m_program.advance(m_now);
}

void Controller::powerCycle(Time now) {
    advance(now);
    m_working = m_flash;
    m_id = static_cast<int>(m_flash.id);
    if (const long baud = baudOfCode(m_flash.baudCode); baud != 0)
        m_baud = baud;
    std::fill_n(m_variables.begin(), firstKeptVariable, 0);
    m_axis.powerUp();
    m_incremental = false;
    m_latch = 0;
    m_syncMode = 1;
    m_syncPosition = 0;
    m_syncOn = false;
    m_outputs = m_firmware >= 322 ? static_cast<unsigned>(m_flash.outputsAtBoot) : 0;
    m_program.powerUp();
    for (int thread = 0; thread < (m_firmware >= 322 ? 2 : 1); ++thread)
        if ((m_flash.bootFlags >> thread & 1) != 0)
            m_program.command(thread, 1, m_now);
}

void Controller::replaceId(int id) {
    m_id = id;
    m_flash.id = m_working.id = id;
}

bool Controller::syncCondition() const {
    switch (m_syncMode) {
        case 2:
            return m_axis.counter() < m_syncPosition;
        case 3:
            return m_axis.counter() > m_syncPosition;
        default:
            return m_axis.touches(m_syncPosition);
    }
}

/// The synchronisation output is the first digital output: while it is on, the position rules it.
unsigned Controller::outputs() const {
    if (!m_syncOn)
        return m_outputs;
    return (m_outputs & ~1U) | (syncCondition() ? 1U : 0U);
}

}  // namespace zlt::sim
