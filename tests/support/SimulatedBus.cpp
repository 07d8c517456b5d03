#include "support/SimulatedBus.h"

#include <stdexcept>

namespace zlt::test {

SimulatedBus::SimulatedBus(const QStringList& options) {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(ZLT_SIM_PATH),
                    QStringList{QStringLiteral("--until-stdin-closes")} + options);
    readDevice();
}

SimulatedBus::~SimulatedBus() {
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(5000))
        m_process.kill();
}

void SimulatedBus::say(const char* line) {
    m_process.write(line);
    m_process.write("\n");
    m_process.waitForBytesWritten();
    if (std::string(line) == "plug")
        readDevice();
}

void SimulatedBus::readDevice() {
    while (!m_process.canReadLine())
        if (!m_process.waitForReadyRead(10'000))
            throw std::runtime_error("the simulator says nothing");
    const std::string line = m_process.readLine().trimmed().toStdString();
    m_device = line.substr(line.find('=') + 1);
}

}  // namespace zlt::test
