// A program's way between file, editor and file: nothing that stands in a line is lost, and a
// text that went round once stays as it is.

#include "programs/ProgramText.h"

#include "Check.h"

namespace zlt::fuzz {
namespace {

std::string withoutLineEnds(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    return text;
}

bool hasWholeLinesOnly(std::string text) {
    for (std::size_t end = 0; (end = text.find("\r\n", end)) != std::string::npos;)
        text.replace(end, 2, "|");
    return holdsNoLineEnd(text) && (text.empty() || text.ends_with('|'));
}

}  // namespace

void check(std::string_view input) {
    const std::string text(input);
    const auto file = WriteTextAsLines(text);
    ZLT_CHECK(file.has_value() == !text.empty());
    if (file) {
        ZLT_CHECK(hasWholeLinesOnly(*file));
        ZLT_CHECK(text.ends_with('\n') || withoutLineEnds(*file) == withoutLineEnds(text));
        ZLT_CHECK(textOfLines(*file) == *file);
        ZLT_CHECK(WriteTextAsLines(*file).value_or("") == *file);
    }

    const std::string shown = textOfLines(text);
    ZLT_CHECK(hasWholeLinesOnly(shown));
    ZLT_CHECK(withoutLineEnds(shown) == withoutLineEnds(text));
    ZLT_CHECK(WriteTextAsLines(shown).value_or("") == shown);
}

}  // namespace zlt::fuzz
