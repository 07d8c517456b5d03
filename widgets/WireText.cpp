#include "widgets/WireText.h"

#include <QList>

#include "platform/Latin1.h"

namespace zlt {

QString shownText(std::string_view wire) {
    return QString::fromLatin1(wire.data(), static_cast<qsizetype>(wire.size()));
}

std::string wireText(const QString& shown) {
    std::string wire;
    wire.reserve(static_cast<std::size_t>(shown.size()));
    for (const uint codePoint : shown.toUcs4()) {
        if (codePoint > 0xFF)
            throw NotLatin1(codePoint);
        wire += static_cast<char>(codePoint);
    }
    return wire;
}

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace zlt
