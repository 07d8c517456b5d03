#pragma once

#include <QMimeData>
#include <QTextCursor>

namespace zlt {

/// What is copied of a text box: the selection as it stands. The usual way turns a no-break space
/// into a blank. The caller's to delete, as Qt's clipboard does.
inline QMimeData* copiedText(const QTextCursor& selection) {
    QString text = selection.selectedText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    auto* mime = new QMimeData;
    mime->setText(text);
    return mime;
}

}  // namespace zlt
