#include "widgets/WireText.h"

#include <QList>

#include "platform/Text.h"

namespace zlt {

QString shownText(std::string_view wire) {
    return QString::fromLatin1(wire.data(), static_cast<qsizetype>(wire.size()));
}

std::string toUtf8(const QString& shown) {
    // Half a character counts as one that the wire cannot carry; Qt's own UTF-8 has "?" for it.
    std::string utf8;
    for (const uint codePoint : shown.toUcs4())
        utf8 += utf8FromCodePoint(codePoint);
    return utf8;
}

std::string wireText(const QString& shown) {
    return wireText(toUtf8(shown));
}

std::string commandText(const QString& shown) {
    return commandText(toUtf8(shown));
}

std::string wireLines(const QString& shown) {
    return wireLines(toUtf8(shown));
}

QString withoutLineEnd(const QString& shown) {
    for (const auto end : {QLatin1String("\r\n"), QLatin1String("\n"), QLatin1String("\r")})
        if (shown.endsWith(end))
            return shown.chopped(end.size());
    return shown;
}

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace zlt
