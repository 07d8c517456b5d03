#include "platform_qt/QtProcesses.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

#include "platform_qt/QtPaths.h"

namespace zlt {

std::filesystem::path ownFolder() {
    return pathFromUtf8(QCoreApplication::applicationDirPath().toStdString());
}

std::filesystem::path dataFolder() {
    return pathFromUtf8(
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString());
}

ProcessEnd QtProcesses::runAndWait(const std::filesystem::path& program) {
    QProcess process;
    // What a tool prints is passed through, so that no pipe fills up and stops it.
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ManagedInputChannel);
    process.start(fromPath(program), QStringList());
    if (!process.waitForStarted(-1))
        return {ProcessEnd::Kind::notStarted, process.errorString().toStdString()};
    process.closeWriteChannel();
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::CrashExit ? ProcessEnd::Kind::crashed
                                                        : ProcessEnd::Kind::exited,
            {}};
}

}  // namespace zlt
