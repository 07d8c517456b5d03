// A program's way between file, editor and file: nothing that stands in a line is lost, and a
// text that went round once stays as it is.

#include "programs/ProgramText.h"

#include <algorithm>

#include "tests/fuzz/Check.h"

namespace {

std::string withoutLineEnds(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    return text;
}

bool hasWholeLinesOnly(const std::string& file) {
    for (std::size_t place = 0; place < file.size(); ++place) {
        if (file[place] == '\r' && (place + 1 == file.size() || file[place + 1] != '\n'))
            return false;
        if (file[place] == '\n' && (place == 0 || file[place - 1] != '\r'))
            return false;
    }
    return file.empty() || file.back() == '\n';
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(zlt::fuzz::textOf(data, size));

    const auto file = zlt::WriteTextAsLines(text);
    ZLT_CHECK(file.has_value() == !text.empty());
    if (file) {
        ZLT_CHECK(hasWholeLinesOnly(*file));
        if (!text.ends_with('\n'))
            ZLT_CHECK(withoutLineEnds(*file) == withoutLineEnds(text));
        ZLT_CHECK(zlt::textOfLines(*file) == *file);
        ZLT_CHECK(zlt::WriteTextAsLines(*file).value_or("") == *file);
    }

    const std::string shown = zlt::textOfLines(text);
    ZLT_CHECK(hasWholeLinesOnly(shown));
    ZLT_CHECK(withoutLineEnds(shown) == withoutLineEnds(text));
    ZLT_CHECK(zlt::WriteTextAsLines(shown).value_or("") == shown);
    return 0;
}
