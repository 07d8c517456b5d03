#include "simulator/Text.h"

#include <charconv>
#include <cstdio>

namespace zlt::sim {

std::string unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = i + 1 < text.size() ? text[i + 1] : ' ';
        unsigned value = 0;
        const char* digits = text.data() + i + 2;
        if (text[i] != '\\') {
            bytes += text[i];
        } else if (next == 'r' || next == 'n' || next == '0' || next == '\\') {
            bytes += next == 'r' ? '\r' : next == 'n' ? '\n' : next == '0' ? '\0' : '\\';
            ++i;
        } else if (next == 'x' && i + 3 < text.size() &&
                   std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2) {
            bytes += static_cast<char>(static_cast<unsigned char>(value));
            i += 3;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

std::string escaped(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        if (c == '\r') {
            text += "\\r";
        } else if (c == '\\') {
            text += "\\\\";
        } else if (c >= ' ' && c <= '~') {
            text += c;
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(c) & 0xFFU);
            text += code;
        }
    }
    return text;
}

std::pair<std::string_view, std::string_view> firstWord(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    text.remove_prefix(begin);
    const auto end = text.find_first_of(blanks);
    if (end == std::string_view::npos)
        return {text, {}};
    auto rest = text.substr(end);
    const auto next = rest.find_first_not_of(blanks);
    rest.remove_prefix(next == std::string_view::npos ? rest.size() : next);
    const auto last = rest.find_last_not_of("\r\n");
    return {text.substr(0, end), rest.substr(0, last == std::string_view::npos ? 0 : last + 1)};
}

}  // namespace zlt::sim
