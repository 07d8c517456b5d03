#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Ends the run with the rule that does not hold; libFuzzer then keeps the input.
#define ZLT_CHECK(rule) \
    ((rule) ? void()    \
            : (std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #rule), std::abort()))

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace zlt::fuzz {

/// The input as the text of a wire or a file.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline bool holdsNoLineEnd(std::string_view text) {
    return text.find_first_of("\r\n") == std::string_view::npos;
}

/// Whether a message can be shown: UTF-8, whole to its last character.
inline bool isUtf8(std::string_view text) {
    std::size_t tails = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool tail = (byte & 0xC0) == 0x80;
        if (tail != (tails > 0))
            return false;
        if (tail)
            --tails;
        else if (byte >= 0xF8)
            return false;
        else
            tails = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : byte >= 0xC0 ? 1 : 0;
    }
    return tails == 0;
}

}  // namespace zlt::fuzz
