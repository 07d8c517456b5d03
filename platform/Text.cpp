#include "platform/Text.h"

#include <algorithm>

namespace zlt {

bool isControlCharacter(char c) {
    return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == '\x7F';
}

std::string inQuotes(std::string_view utf8) {
    constexpr std::size_t longest = 80;
    std::size_t end = std::min(utf8.size(), longest);
    while (end > 0 && end < utf8.size() && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80)
        --end;  // not in the middle of a character
    std::string text(utf8.substr(0, end));
    std::replace_if(text.begin(), text.end(), isControlCharacter, '?');
    return '"' + text + (end < utf8.size() ? "\xE2\x80\xA6\"" : "\"");
}

}  // namespace zlt
