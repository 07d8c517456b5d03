#include "platform_qt/LongTextView.h"

#include <QMimeData>
#include <algorithm>

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

}  // namespace zlt
