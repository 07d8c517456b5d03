#include "platform_qt/QtGate.h"

#include <QApplication>
#include <QMessageBox>

namespace zlt {
namespace {

const QString applicationTitle = QStringLiteral("ZLT-R-NX-42");

/// Line ends of the wire and of files as Qt breaks lines.
QString shown(std::string_view text) {
    QString lines = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return lines;
}

QWidget* screenInFront() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

/// The busy cursor of a running handler would say that there is nothing to answer.
class ArrowCursor {
 public:
    ArrowCursor() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowCursor() { QApplication::restoreOverrideCursor(); }
    ArrowCursor(const ArrowCursor&) = delete;
    ArrowCursor& operator=(const ArrowCursor&) = delete;
};

}  // namespace

void QtGate::message(std::string_view text) {
    const ArrowCursor arrow;
    QMessageBox box(QMessageBox::Information, applicationTitle, shown(text), QMessageBox::Ok,
                    screenInFront());
    box.setTextFormat(Qt::PlainText);  // a reply may hold anything, "<b>" too
    box.exec();
}

}  // namespace zlt
