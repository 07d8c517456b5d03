#include "programs/ProgramText.h"

#include "platform/Text.h"

namespace zlt {

std::optional<std::string> WriteTextAsLines(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    std::string whole(text);
    if (whole.back() != '\n')
        whole += "\r\n";

    std::string file;
    std::string line;
    for (const char c : whole) {
        if (c == '\r') {
            file += line + "\r\n";
            line.clear();
        } else if (c != '\n') {
            line += c;
        }
    }
    return file;
}

std::string textOfLines(std::string_view file) {
    std::string text;
    for (const std::string& line : splitLines(file))
        text += line + "\r\n";
    return text;
}

std::string withSignBlank(int number) {
    return (number < 0 ? "" : " ") + std::to_string(number);
}

}  // namespace zlt
