// The entry of every target.

#include <cstddef>
#include <cstdint>

#include "Check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zlt::fuzz::check({reinterpret_cast<const char*>(data), size});
    return 0;
}

bool zlt::fuzz::isUtf8(std::string_view text) {
    int tails = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool tail = (byte & 0xC0) == 0x80;
        if (tail != (tails > 0) || byte >= 0xF8)
            return false;
        tails = tail ? tails - 1 : (byte >= 0xC0) + (byte >= 0xE0) + (byte >= 0xF0);
    }
    return tails == 0;
}
