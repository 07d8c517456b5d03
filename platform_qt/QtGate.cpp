#include "platform_qt/QtGate.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>

#include "platform/Product.h"
#include "platform_qt/LongTextView.h"

namespace zlt {
namespace {

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Line ends of the wire and of files as Qt breaks lines.
QString shown(std::string_view text) {
    QString lines = fromUtf8(text);
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return lines;
}

QWidget* screenInFront() {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    // Right behind another box, or behind another program, no window is the active one.
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowType() == Qt::Window)
            return window;
    return nullptr;
}

/// The busy cursor of a running handler would say that there is nothing to answer.
class ArrowCursor {
 public:
    ArrowCursor() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowCursor() { QApplication::restoreOverrideCursor(); }
    ArrowCursor(const ArrowCursor&) = delete;
    ArrowCursor& operator=(const ArrowCursor&) = delete;
};

/// From here on a text might not fit on a screen.
constexpr qsizetype longText = 1500;
constexpr int longTextLines = 18;

/// Shows a text that may be too long for the screen, and for a label, in a view that scrolls in the
/// label's place, so that the buttons stay on the screen.
void showInView(QMessageBox& box, const QString& text) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!label || !grid)
        return;
    auto* view = new LongTextView(text, &box);
    view->setMinimumSize(520, 320);
    delete grid->replaceWidget(label, view);
    label->hide();
}

int showBox(QMessageBox::Icon icon, const QString& title, std::string_view text,
            QMessageBox::StandardButtons buttons) {
    const ArrowCursor arrow;
    const QString lines = shown(text);
    const bool isLong = lines.size() > longText || lines.count(QLatin1Char('\n')) > longTextLines;
    QMessageBox box(icon, title, isLong ? QString() : lines, buttons, screenInFront());
    box.setTextFormat(Qt::PlainText);  // a reply may hold anything, "<b>" too
    if (isLong)
        showInView(box, lines);
    if (buttons & QMessageBox::No)
        box.setDefaultButton(QMessageBox::No);
    return box.exec();
}

/// The pattern of a filter, "*.prg" of "Program Files (*.prg)|*.prg".
QString patternOf(const FileChoice& choice) {
    return fromUtf8(choice.filter).section(QLatin1Char('|'), 1);
}

std::optional<std::string> showDialog(const FileChoice& choice, QFileDialog::AcceptMode mode) {
    const ArrowCursor arrow;
    QFileDialog dialog(screenInFront(), fromUtf8(choice.title));
    // The desktop's own dialogs may refuse names that are not there, and add the suffix only
    // behind the question about overwriting.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(mode);
    // Any name passes, there or not: what to say about it is the caller's to know.
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(fromUtf8(choice.filter).section(QLatin1Char('|'), 0, 0));
    if (mode == QFileDialog::AcceptSave)
        dialog.setDefaultSuffix(patternOf(choice).section(QLatin1Char('.'), -1));
    dialog.selectFile(fromUtf8(choice.initialName));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().value(0).toStdString();
}

}  // namespace

void QtGate::message(std::string_view text) {
    showBox(QMessageBox::Information, fromUtf8(controllerModel), text, QMessageBox::Ok);
}

bool QtGate::ask(std::string_view title, std::string_view text) {
    return showBox(QMessageBox::Question, fromUtf8(title), text,
                   QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

std::optional<std::string> QtGate::chooseToOpen(const FileChoice& choice) {
    return showDialog(choice, QFileDialog::AcceptOpen);
}

std::optional<std::string> QtGate::chooseToSave(const FileChoice& choice) {
    return showDialog(choice, QFileDialog::AcceptSave);
}

}  // namespace zlt
