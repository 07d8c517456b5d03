#include "widgets/WireText.h"

#include <QList>
#include <algorithm>

#include "platform/Text.h"

namespace zlt {

QString shownText(std::string_view wire) {
    return QString::fromLatin1(wire.data(), static_cast<qsizetype>(wire.size()));
}

namespace {

/// `line` counts the lines from 1, or stays 0 where there is only one.
std::string convert(const QString& shown, int line) {
    std::string wire;
    wire.reserve(static_cast<std::size_t>(shown.size()));
    for (const uint codePoint : shown.toUcs4()) {
        if (codePoint > 0xFF)
            throw NotLatin1(codePoint, line);
        wire += static_cast<char>(codePoint);
        if (line > 0 && codePoint == '\n')
            ++line;
    }
    return wire;
}

}  // namespace

ControlCharacter::ControlCharacter()
    : std::runtime_error(
          "The text holds a line end or another control character that is not shown.  Please type "
          "it anew.") {}

std::string wireText(const QString& shown) {
    if (shown.contains(QLatin1Char('\r')) || shown.contains(QLatin1Char('\n')))
        throw ControlCharacter();
    return convert(shown, 0);
}

std::string commandText(const QString& shown) {
    std::string text = wireText(shown);
    // A tab may stand in a line of text, not in a command.
    const auto isRefused = [](char c) { return isControlCharacter(c) || c == '\t'; };
    if (std::any_of(text.begin(), text.end(), isRefused))
        throw ControlCharacter();
    return text;
}

std::string wireLines(const QString& shown) {
    return convert(shown, 1);
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
