#include "platform_qt/PosixSystem.h"

#include <unistd.h>

#include <QFileDevice>
#include <QProcess>
#include <cerrno>
#include <system_error>

#include "platform_qt/QtFiles.h"
#include "platform_qt/ThisSystem.h"

namespace zlt {
namespace {

constexpr qsizetype keptOutput = 64 * 1024;

}  // namespace

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

std::unique_ptr<Waits> makeWaits() {
    return std::make_unique<ThreadWaits>();
}

std::unique_ptr<Processes> makeProcesses() {
    return std::make_unique<QtProcesses>();
}

std::optional<std::string> synchronise(const QFileDevice& file) {
    if (::fsync(file.handle()) != 0 && errno != EINVAL && errno != EROFS && errno != ENOSYS)
        return std::generic_category().message(errno);
    return std::nullopt;
}

}  // namespace zlt
