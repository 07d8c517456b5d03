#include "simulator/Port.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

#include "simulator/Commands.h"
#include "simulator/Text.h"

namespace zlt::sim {
namespace {

std::vector<Controller> makeControllers(const PortOptions& options) {
    return {options.controllers.begin(), options.controllers.end()};
}

}  // namespace

Port::Port(const PortOptions& options)
    : m_name(options.name), m_bus(makeControllers(options), options.paced) {
    if (!options.link.empty())
        m_link.emplace(options.link);
    for (const std::string& fault : options.faults)
        if (const std::string wrong = command(fault, Time{0}); !wrong.empty())
            throw std::invalid_argument("--fault " + fault + ": " + wrong);
}

void Port::plug() {
    m_bus.reset();
    m_terminal.open(m_bus.controllers().front().baud());
    if (m_link)
        m_link->pointTo(m_terminal.path());
    std::cout << m_name << '=' << m_terminal.path() << std::endl;
}

void Port::transfer(Time now) {
    if (!m_terminal.isOpen())
        return;
    const bool changed = m_terminal.clientChanged();
    if (changed) {
        if (m_bus.deafUntil(now)) {
            // The rest of what the last client wrote faster than the wire.
            m_terminal.read();
        }
        m_bus.reset();
    }
    const long baud = m_terminal.baud();
    // One piece at a time, so that a client that never stops cannot starve the rest.
    if (!m_bus.deafUntil(now)) {
        const std::string bytes = m_terminal.read();
        if (!bytes.empty() && !changed && !m_terminal.hasClient())
            m_terminal.presumeClient();
        m_bus.receive(bytes, baud, now);
    }
    // Without a client what is sent goes nowhere; kept, it would meet the next one.
    const std::string bytes = m_bus.take(baud, now);
    if (m_terminal.hasClient())
        m_terminal.write(bytes);
}

std::optional<Time> Port::nextDue(Time now) const {
    if (!m_terminal.isOpen() || !m_terminal.hasClient())
        return {};
    auto due = m_bus.nextDue();
    if (const auto deaf = m_bus.deafUntil(now))
        due = std::min(due.value_or(*deaf), *deaf);
    return due;
}

bool Port::listening(Time now) const {
    return m_terminal.isOpen() && !m_bus.deafUntil(now);
}

std::string Port::command(std::string_view line, Time now) {
    bool known = false;
    if (std::string wrong = m_bus.faults().apply(line, known); known)
        return wrong;
    const auto [word, rest] = firstWord(line);
    if (word == "hangup")
        hangUp();
    else if (word == "plug")
        plug();
    else if (word == "power")
        return powerCycle(rest, now);
    else if (word == "id")
        return changeId(rest);
    else if (word == "firmware")
        return changeFirmware(rest);
    else if (word == "pace" || word == "unpaced")
        m_bus.setPaced(word == "pace");
    else
        return "no such word; --help lists them";
    return "";
}

Controller* Port::find(std::string_view id) {
    const auto number = wholeNumber(id);
    auto& all = m_bus.controllers();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Controller& controller) {
        return number && controller.id() == *number;
    });
    return found == all.end() ? nullptr : &*found;
}

std::string Port::powerCycle(std::string_view rest, Time now) {
    if (!rest.empty()) {
        Controller* one = find(rest);
        if (one == nullptr)
            return "no such controller";
        one->powerCycle(now);
        return "";
    }
    for (Controller& controller : m_bus.controllers())
        controller.powerCycle(now);
    return "";
}

std::string Port::changeId(std::string_view rest) {
    const auto [from, to] = firstWord(rest);
    Controller* controller = find(from);
    const auto id = wholeNumber(to);
    if (controller == nullptr || !id || *id < 1 || *id > 99)
        return "give the controller's address and a new one, 1 to 99";
    controller->replaceId(static_cast<int>(*id));
    return "";
}

std::string Port::changeFirmware(std::string_view rest) {
    const auto [first, second] = firstWord(rest);
    const auto firmware = wholeNumber(second.empty() ? first : second);
    Controller* one = second.empty() ? nullptr : find(first);
    if (!firmware || *firmware < 100 || *firmware > 999 || (!second.empty() && one == nullptr))
        return "give a number, 100 to 999, or a controller's address and the number";
    for (Controller& controller : m_bus.controllers())
        if (one == nullptr || one == &controller)
            controller.replaceFirmware(static_cast<int>(*firmware));
    return "";
}

}  // namespace zlt::sim
