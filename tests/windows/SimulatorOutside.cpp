// The simulator outside Wine, which has no pseudo-terminals of its own. What it is started with,
// told and prints goes through files of the folder ZLT_SIMULATORS, which tests/windows/simulators
// watches.

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QUuid>
#include <stdexcept>

#include "support/SimulatorConsole.h"

namespace zlt::test {
namespace {

class SimulatorOutside final : public SimulatorConsole {
 public:
    explicit SimulatorOutside(const QStringList& options) {
        // Process numbers come again.
        const QString name = QDir(qEnvironmentVariable("ZLT_SIMULATORS"))
                                 .filePath(QUuid::createUuid().toString(QUuid::WithoutBraces));
        m_input.setFileName(name + QStringLiteral(".in"));
        m_output.setFileName(name + QStringLiteral(".out"));
        if (!m_input.open(QIODevice::WriteOnly) || !m_output.open(QIODevice::ReadWrite))
            throw std::runtime_error("ZLT_SIMULATORS names no folder: run tests/windows/run");
        QFile asked(name + QStringLiteral(".part"));
        asked.open(QIODevice::WriteOnly);
        asked.write(options.join(QLatin1Char('\n')).toUtf8() + '\n');
        asked.close();
        asked.rename(name + QStringLiteral(".options"));
    }
    ~SimulatorOutside() override {
        write("echo bye\nquit\n");
        try {
            while (readLine() != "bye") {
            }
        } catch (const std::runtime_error&) {
            ADD_FAILURE() << "the simulator did not live to its end";
        }
    }
    SimulatorOutside(const SimulatorOutside&) = delete;
    SimulatorOutside& operator=(const SimulatorOutside&) = delete;

    void write(const std::string& lines) override {
        m_input.write(lines.c_str());
        m_input.flush();
    }

    std::string readLine() override {
        QElapsedTimer waited;
        waited.start();
        while (!m_heard.contains('\n')) {
            if (waited.hasExpired(10'000))
                throw std::runtime_error("the simulator says nothing");
            m_heard += m_output.readAll();
            QTest::qSleep(1);
        }
        const qsizetype end = m_heard.indexOf('\n');
        const std::string line = m_heard.first(end).trimmed().toStdString();
        m_heard.remove(0, end + 1);
        return line;
    }

 private:
    QFile m_input, m_output;
    QByteArray m_heard;
};

}  // namespace

std::unique_ptr<SimulatorConsole> startSimulator(const QStringList& options) {
    return std::make_unique<SimulatorOutside>(options);
}

}  // namespace zlt::test
