#include "platform_qt/QtHelpViewer.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "platform_qt/QtPaths.h"

namespace zlt {

void QtHelpViewer::openContents(const std::filesystem::path& path) {
    const QFileInfo file(fromPath(path));
    const std::string name = file.fileName().toStdString();
    if (!file.exists()) {
        m_gate.message("The help file " + name + " is not in the folder " +
                       QDir::toNativeSeparators(QDir::currentPath()).toStdString() + ".");
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath())))
        m_gate.message("This desktop has no program that shows the help file " + name + ".");
}

}  // namespace zlt
