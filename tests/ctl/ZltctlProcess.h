#pragma once

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <fstream>

#include "support/SimulatedBus.h"

namespace zlt::test {

/// A folder with a port list that leads COM1 to a simulated bus, and the built program.
class ZltctlProcess : public ::testing::Test {
 protected:
    explicit ZltctlProcess(const QStringList& options = {QStringLiteral("--unpaced")})
        : bus(options) {
        listPort();
    }

    void listPort() { std::ofstream(path("zlt-r-485.ports")) << "COM1=" << bus.device() << "\n"; }
    [[nodiscard]] std::string path(const char* name) const {
        return folder.filePath(QString::fromLatin1(name)).toStdString();
    }

    /// A program that runs in the folder, with zltctl in its path.
    void start(QProcess& process, const QString& program, const QStringList& arguments) const {
        auto environment = QProcessEnvironment::systemEnvironment();
        const auto own = QFileInfo(QStringLiteral(ZLT_CTL_PATH)).absolutePath();
        environment.insert(QStringLiteral("PATH"),
                           own + u':' + environment.value(QStringLiteral("PATH")));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.path());
        process.start(program, arguments);
        ASSERT_TRUE(process.waitForStarted());
    }
    void start(QProcess& process, const char* commandLine) const {
        start(process, QStringLiteral(ZLT_CTL_PATH),
              QString::fromLatin1(commandLine).split(u' ', Qt::SkipEmptyParts));
    }
    /// Waits for its end, closes its input, and returns its exit code.
    static int codeOf(QProcess& process, int milliseconds = 10'000) {
        process.closeWriteChannel();
        if (process.state() != QProcess::NotRunning && !process.waitForFinished(milliseconds)) {
            ADD_FAILURE() << "it does not end";
            process.kill();
            process.waitForFinished();
        }
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    /// Runs a command line to its end; what it printed is in `results` and `errors` then.
    int run(const char* commandLine) {
        QProcess process;
        start(process, commandLine);
        const int code = codeOf(process);
        results = process.readAllStandardOutput().toStdString();
        errors = process.readAllStandardError().toStdString();
        return code;
    }
    /// Until `process` has printed a line on standard output.
    static std::string nextLine(QProcess& process) {
        while (!process.canReadLine())
            if (!process.waitForReadyRead(10'000)) {
                ADD_FAILURE() << "it prints nothing";
                return {};
            }
        return process.readLine().trimmed().toStdString();
    }

    QTemporaryDir folder;
    SimulatedBus bus;
    std::string results, errors;
};

}  // namespace zlt::test
