#include "platform_qt/QtSystem.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>

#include "platform_qt/QtFiles.h"

namespace zlt {
namespace {

constexpr qsizetype keptOutput = 64 * 1024;

}  // namespace

std::filesystem::path ownFolder() {
    return pathFromUtf8(
        QDir::toNativeSeparators(QCoreApplication::applicationDirPath()).toStdString());
}

std::filesystem::path dataFolder() {
    return pathFromUtf8(
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString());
}

ProcessEnd QtProcesses::runAndWait(const std::filesystem::path& program, const Started& started) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setInputChannelMode(QProcess::ManagedInputChannel);
    process.start(fromPath(program), QStringList());
    if (!process.waitForStarted(-1))
        return {ProcessEnd::Kind::notStarted, process.errorString().toStdString()};
    process.closeWriteChannel();
    started(process.processId());
    // Read on, so that no pipe fills up and stops it.
    QByteArray printed;
    const auto keepLast = [&](qsizetype most) {
        printed += process.readAll();
        if (printed.size() > most)
            printed = printed.last(keptOutput);
    };
    while (process.waitForReadyRead(-1))
        keepLast(2 * keptOutput);
    process.waitForFinished(-1);
    keepLast(keptOutput);
    return {process.exitStatus() == QProcess::CrashExit ? ProcessEnd::Kind::crashed
                                                        : ProcessEnd::Kind::exited,
            {},
            QString::fromLocal8Bit(printed).toStdString()};
}

}  // namespace zlt
