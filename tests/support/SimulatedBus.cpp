#include "support/SimulatedBus.h"

namespace zlt::test {

SimulatedBus::SimulatedBus(const QStringList& options) : m_console(startSimulator(options)) {
    const std::string port = m_console->readLine();
    m_device = port.substr(port.find('=') + 1);
}

void SimulatedBus::say(const char* line) {
    m_console->write(std::string(line) + "\necho carried out\n");
    for (std::string heard; heard != "carried out";) {
        heard = m_console->readLine();
        if (const auto equals = heard.find('='); equals != std::string::npos)
            m_device = heard.substr(equals + 1);
    }
}

}  // namespace zlt::test
