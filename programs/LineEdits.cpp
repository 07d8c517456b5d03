#include "programs/LineEdits.h"

#include <algorithm>

#include "programs/ProgramLanguage.h"

namespace zlt {
namespace {

bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t';
}

bool isEmpty(const std::u16string& line) {
    return marginOf(line).size() == line.size();
}

bool isComment(const std::u16string& line) {
    const std::size_t margin = marginOf(line).size();
    return margin < line.size() && line[margin] == commentSign;
}

}  // namespace

TextLines toggleComment(TextLines lines) {
    const auto stays = [](const std::u16string& line) { return isEmpty(line) || isComment(line); };
    const bool uncomment = std::all_of(lines.begin(), lines.end(), stays);
    std::size_t margin = std::u16string::npos;
    for (const std::u16string& line : lines)
        if (!isEmpty(line))
            margin = std::min(margin, marginOf(line).size());
    for (std::u16string& line : lines) {
        if (isEmpty(line))
            continue;
        if (!uncomment) {
            line.insert(margin, {commentSign, u' '});
            continue;
        }
        const std::size_t sign = marginOf(line).size();
        const bool blankAfter = sign + 1 < line.size() && line[sign + 1] == u' ';
        line.erase(sign, blankAfter ? 2 : 1);
    }
    return lines;
}

TextLines indent(TextLines lines, std::size_t width) {
    for (std::u16string& line : lines)
        if (!line.empty())
            line.insert(0, width, u' ');
    return lines;
}

TextLines outdent(TextLines lines, std::size_t width) {
    for (std::u16string& line : lines) {
        const auto blanks = std::min(line.find_first_not_of(u' '), line.size());
        const bool tab = blanks == 0 && line.starts_with(u'\t');
        line.erase(0, tab ? 1 : std::min(blanks, width));
    }
    return lines;
}

std::size_t blanksToStop(std::u16string_view before, std::size_t width) {
    std::size_t column = 0;
    for (const char16_t c : before)
        column += c == u'\t' ? width - column % width : 1;
    return width - column % width;
}

std::u16string_view marginOf(std::u16string_view line) {
    return line.substr(0, static_cast<std::size_t>(
                              std::find_if_not(line.begin(), line.end(), isBlank) - line.begin()));
}

}  // namespace zlt
