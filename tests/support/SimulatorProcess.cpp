// The simulator as a child of the test.

#include <QProcess>
#include <stdexcept>

#include "support/SimulatorConsole.h"

namespace zlt::test {
namespace {

class SimulatorProcess final : public SimulatorConsole {
 public:
    explicit SimulatorProcess(const QStringList& options) {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(ZLT_SIM_PATH),
                        QStringList{QStringLiteral("--until-stdin-closes")} + options);
    }
    ~SimulatorProcess() override {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(5000))
            m_process.kill();
    }
    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;

    void write(const std::string& lines) override { m_process.write(lines.c_str()); }

    std::string readLine() override {
        while (!m_process.canReadLine())
            if (!m_process.waitForReadyRead(10'000))
                throw std::runtime_error("the simulator says nothing");
        return m_process.readLine().trimmed().toStdString();
    }

 private:
    QProcess m_process;
};

}  // namespace

std::unique_ptr<SimulatorConsole> startSimulator(const QStringList& options) {
    return std::make_unique<SimulatorProcess>(options);
}

}  // namespace zlt::test
