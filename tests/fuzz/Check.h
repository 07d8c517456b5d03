#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// Ends the run with the rule that does not hold; libFuzzer then keeps the input.
#define ZLT_CHECK(rule) \
    ((rule) ? void()    \
            : (std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #rule), std::abort()))

namespace zlt::fuzz {

/// What a target does with one input: the text of a wire or a file.
void check(std::string_view input);

inline bool holdsNoLineEnd(std::string_view text) {
    return text.find_first_of("\r\n") == std::string_view::npos;
}

/// Whether a message can be shown: UTF-8, whole to its last character.
bool isUtf8(std::string_view text);

}  // namespace zlt::fuzz
