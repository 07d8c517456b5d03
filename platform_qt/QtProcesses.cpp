#include "platform_qt/QtProcesses.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

namespace zlt {

std::filesystem::path ownFolder() {
#ifdef Q_OS_LINUX
    // As bytes: Qt's answer is empty for a folder whose name is no valid text.
    std::error_code unknown;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", unknown);
    if (!unknown)
        return executable.parent_path();
#endif
    return QCoreApplication::applicationDirPath().toStdU16String();
}

ProcessEnd QtProcesses::runAndWait(const std::filesystem::path& program) {
    QProcess process;
    // What a tool prints is passed through, so that no pipe fills up and stops it.
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ManagedInputChannel);
#ifdef Q_OS_WIN
    process.start(QString::fromStdWString(program.wstring()), QStringList());
#else
    process.start(QFile::decodeName(program.c_str()), QStringList());
#endif
    if (!process.waitForStarted(-1))
        return {ProcessEnd::Kind::notStarted, process.errorString().toStdString()};
    process.closeWriteChannel();
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::CrashExit ? ProcessEnd::Kind::crashed
                                                        : ProcessEnd::Kind::exited,
            {}};
}

}  // namespace zlt
