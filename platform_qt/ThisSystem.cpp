#include "platform_qt/ThisSystem.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include "platform/Files.h"

namespace zlt {

std::filesystem::path ownFolder() {
    return pathFromUtf8(
        QDir::toNativeSeparators(QCoreApplication::applicationDirPath()).toStdString());
}

std::filesystem::path dataFolder() {
    return pathFromUtf8(
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString());
}

}  // namespace zlt
