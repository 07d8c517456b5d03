#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cstdio>

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

namespace {

std::string describe(char32_t codePoint, int line) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "U+%04X", static_cast<unsigned>(codePoint));
    const std::string place = line > 0 ? " in line " + std::to_string(line) : "";
    return "The character \"" + utf8FromCodePoint(codePoint) + "\" (" + number.data() + ")" +
           place + " is not one that the controller or a file can hold.  Please replace it.";
}

/// Takes the first character off a text; U+FFFD stands for a byte that begins none.
char32_t takeCodePoint(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t codePoint = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    const std::string_view bytes = utf8.substr(0, length);
    for (const char tail : bytes.substr(1))
        codePoint = (codePoint << 6) | (static_cast<unsigned char>(tail) & 0x3FU);
    if (utf8FromCodePoint(codePoint) != bytes) {
        utf8.remove_prefix(1);
        return 0xFFFD;
    }
    utf8.remove_prefix(length);
    return codePoint;
}

/// `line` counts the lines from 1, or stays 0 where there is only one.
std::string latin1FromUtf8(std::string_view utf8, int line) {
    std::string latin1;
    latin1.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t codePoint = takeCodePoint(utf8);
        if (codePoint > 0xFF)
            throw NotLatin1(codePoint, line);
        latin1 += static_cast<char>(codePoint);
        if (line > 0 && codePoint == '\n')
            ++line;
    }
    return latin1;
}

}  // namespace

NotLatin1::NotLatin1(char32_t codePoint, int line)
    : std::runtime_error(describe(codePoint, line)) {}

ControlCharacter::ControlCharacter()
    : std::runtime_error(
          "The text holds a line end or another control character that is not shown.  Please type "
          "it anew.") {}

std::string wireText(std::string_view utf8) {
    if (utf8.find_first_of("\r\n") != std::string_view::npos)
        throw ControlCharacter();
    return latin1FromUtf8(utf8, 0);
}

std::string commandText(std::string_view utf8) {
    // A tab may stand in a line of text, not in a command.
    const auto isRefused = [](char c) { return isControlCharacter(c) || c == '\t'; };
    if (std::any_of(utf8.begin(), utf8.end(), isRefused))
        throw ControlCharacter();
    return latin1FromUtf8(utf8, 0);
}

std::string wireLines(std::string_view utf8) {
    return latin1FromUtf8(utf8, 1);
}

std::string utf8FromLatin1(std::string_view latin1) {
    std::string utf8;
    utf8.reserve(latin1.size());
    for (const char c : latin1)
        utf8 += utf8FromCodePoint(static_cast<unsigned char>(c));
    return utf8;
}

std::string utf8FromCodePoint(char32_t codePoint) {
    const auto tail = [codePoint](int shift) {
        return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
    };
    if (codePoint < 0x80)
        return {static_cast<char>(codePoint)};
    if (codePoint < 0x800)
        return {static_cast<char>(0xC0 | (codePoint >> 6)), tail(0)};
    if (codePoint < 0x10000)
        return {static_cast<char>(0xE0 | (codePoint >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (codePoint >> 18)), tail(12), tail(6), tail(0)};
}

std::vector<std::string> splitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        lines.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            break;
        const bool pair = text.substr(end, 2) == "\r\n";
        text.remove_prefix(end + (pair ? 2 : 1));
    }
    return lines;
}

}  // namespace zlt
