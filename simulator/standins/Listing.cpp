#include "simulator/standins/Listing.h"

#include <charconv>
#include <cstdio>

namespace zlt::standins {
namespace {

constexpr std::size_t escapeLength = 3;

std::string numberInFront(std::size_t line) {
    char text[24];
    std::snprintf(text, sizeof text, "%04zu ", line);
    return text;
}

}  // namespace

std::string codeOfLine(std::string_view programLine) {
    std::string code;
    for (const char c : programLine) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20U && byte != 0x7FU && c != '@' && c != '\\') {
            code += c;
            continue;
        }
        char escape[escapeLength + 1];
        std::snprintf(escape, sizeof escape, "\\%02X", static_cast<unsigned>(byte));
        code += escape;
    }
    return code;
}

std::string lineOfCode(std::string_view code) {
    std::string line;
    for (std::size_t i = 0; i < code.size(); ++i) {
        unsigned byte = static_cast<unsigned char>(code[i]);
        if (code[i] == '\\') {
            const auto digits = code.substr(i + 1, escapeLength - 1);
            std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
            i += digits.size();
        }
        line += static_cast<char>(static_cast<unsigned char>(byte));
    }
    if (codeOfLine(line) != code)
        throw Failure("\"" + codeOfLine(code) + "\" is no code.");
    return line;
}

Lines listingOf(const std::string& status, const Lines& code) {
    Lines listing{status};
    for (std::size_t line = 0; line < code.size(); ++line)
        listing.push_back(numberInFront(line) + code[line]);
    return listing;
}

Lines codeOfListing(const std::string& file, const Lines& listing) {
    const std::string status = listing.empty() ? "" : listing.front();
    if (status.find("FAILED") != std::string::npos)
        throw Failure(file + " holds no program but a failure:", {status});
    if (!status.starts_with("OK - "))
        throw Failure(file + " is not from a stand-in tool.");
    Lines code;
    for (std::size_t line = 0; line + 1 < listing.size(); ++line) {
        const std::string number = numberInFront(line);
        if (!listing[line + 1].starts_with(number))
            throw Failure("the numbers in " + file + " are mixed up.");
        code.push_back(listing[line + 1].substr(number.size()));
        lineOfCode(code.back());
    }
    return code;
}

}  // namespace zlt::standins
