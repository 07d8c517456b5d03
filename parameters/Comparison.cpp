#include "parameters/Comparison.h"

#include <algorithm>

#include "platform/Latin1.h"

namespace zlt {

Comparison::Comparison(const ParameterValues& shown, const DeviceCopy& copy,
                       FirmwareVersion firmware) {
    for (const ParameterField field : parameterFields) {
        if (firmware < parameterRow(field).writtenFrom)
            continue;
        const auto& word = copy.word(field);
        Standing& standing = m_standings[static_cast<std::size_t>(field)];
        if (!word)
            standing = Standing::unread;
        else if (shown[field] != utf8FromLatin1(*word))
            standing = Standing::differs;
    }
}

int Comparison::count(Standing standing) const {
    return static_cast<int>(std::ranges::count(m_standings, standing));
}

}  // namespace zlt
