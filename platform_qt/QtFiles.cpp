#include "platform_qt/QtFiles.h"

#include <QFile>
#include <QSaveFile>

#include "platform_qt/QtPaths.h"

namespace zlt {

std::optional<std::string> QtFiles::read(const std::filesystem::path& path, std::size_t limit) {
    QFile file(fromPath(path));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.read(static_cast<qint64>(limit));
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return bytes.toStdString();
}

std::optional<std::string> QtFiles::writeWhole(const std::filesystem::path& path,
                                               std::string_view bytes) {
    QSaveFile file(fromPath(path));
    const auto size = static_cast<qint64>(bytes.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), size) != size ||
        !file.commit())
        return file.errorString().toStdString();
    return std::nullopt;
}

}  // namespace zlt
