#pragma once

#include <QMimeData>
#include <QString>
#include <QTextCursor>
#include <string>
#include <string_view>

namespace zlt {

/// A widget's text for the rules that count in its own units. As long as `text` is left alone.
inline std::u16string_view textView(QStringView text) {
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}
/// The other way.
inline QString fromUtf16(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

/// Text of the wire or of a file, one byte a character, as a widget shows it.
QString shownText(std::string_view wire);

/// What stands in a widget, UTF-8.
std::string toUtf8(const QString& shown);

/// As the functions of these names in platform/Text.h, for what stands in a widget.
std::string wireText(const QString& shown);
std::string commandText(const QString& shown);
std::string wireLines(const QString& shown);

/// A typed or pasted text less one line end at its end.
QString withoutLineEnd(const QString& shown);

/// UTF-8 text, as messages and the system's own words are, for a widget.
QString fromUtf8(std::string_view text);

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
