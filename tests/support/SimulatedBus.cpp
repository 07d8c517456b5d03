#include "support/SimulatedBus.h"

#include <signal.h>

#include <stdexcept>

namespace zlt::test {

SimulatedBus::SimulatedBus(const QStringList& options) {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(ZLT_SIM_PATH),
                    QStringList{QStringLiteral("--until-stdin-closes")} + options);
    const std::string port = readLine();
    m_device = port.substr(port.find('=') + 1);
}

SimulatedBus::~SimulatedBus() {
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(5000))
        m_process.kill();
}

void SimulatedBus::say(const char* line) {
    m_process.write(line);
    m_process.write("\necho carried out\n");
    for (std::string heard; heard != "carried out";) {
        heard = readLine();
        if (const auto equals = heard.find('='); equals != std::string::npos)
            m_device = heard.substr(equals + 1);
    }
}

void SimulatedBus::pauseWhile(const std::function<void()>& work) {
    const auto process = static_cast<pid_t>(m_process.processId());
    ::kill(process, SIGSTOP);
    work();
    ::kill(process, SIGCONT);
}

std::string SimulatedBus::readLine() {
    while (!m_process.canReadLine())
        if (!m_process.waitForReadyRead(10'000))
            throw std::runtime_error("the simulator says nothing");
    return m_process.readLine().trimmed().toStdString();
}

}  // namespace zlt::test
