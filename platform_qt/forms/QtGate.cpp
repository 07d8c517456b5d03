#include "platform_qt/forms/QtGate.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "platform/Product.h"
#include "platform_qt/QtFiles.h"

namespace zlt {
namespace {

/// A line is laid out whole: a long one is folded where this many characters stand in it.
constexpr qsizetype longestLine = 4000;
/// Ends a line that goes on in the next: a word joiner, which is not seen.
constexpr QChar fold(0x2060);

QString folded(const QString& text) {
    QString all;
    all.reserve(text.size() + text.size() / longestLine * 2);
    for (qsizetype from = 0; from < text.size();) {
        const qsizetype end = text.indexOf(QLatin1Char('\n'), from);
        const qsizetype lineEnd = end < 0 ? text.size() : end + 1;
        for (; lineEnd - from > longestLine; from += longestLine) {
            all += QStringView(text).mid(from, longestLine);
            all += fold;
            all += QLatin1Char('\n');
        }
        all += QStringView(text).mid(from, lineEnd - from);
        from = lineEnd;
    }
    return all;
}

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

/// Whether a window lies over another: belongs to it, or to one that does.
bool liesOver(const QWidget* window, const QWidget* below) {
    while (window && window != below)
        window = window->parentWidget();
    return window != nullptr;
}

QWidget* screenInFront() {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        // A window beside the screen may be the one that is worked.
        QWidget* active = QApplication::activeWindow();
        return liesOver(active, modal) ? active : modal;
    }
    if (QWidget* active = QApplication::activeWindow())
        return active;
    // Right after another box, or under another program, no window is the active one.
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
    // after the question about overwriting.
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

LongTextView::LongTextView(const QString& text, QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setPlainText(folded(text));
}

QMimeData* LongTextView::createMimeDataFromSelection() const {
    QString text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    text.remove(QString(fold) + QLatin1Char('\n'));
    text.remove(fold);
    auto* mime = new QMimeData;
    mime->setText(text);
    return mime;
}

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
