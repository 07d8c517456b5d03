#pragma once

#include <string>
#include <string_view>

#include "simulator/standins/Tool.h"

namespace zlt::standins {

/// What stands for compiled code: the program line itself, except that characters which a request
/// cannot carry ("@", control characters) and the backslash become a backslash and two hexadecimal
/// digits. So the simulated controller finds its "PRG 1" and "END", and every line comes back.
std::string codeOfLine(std::string_view programLine);
/// The other way. Throws Failure when `code` is nothing that codeOfLine() makes.
std::string lineOfCode(std::string_view code);

/// A listing, which is also the image of an upload: the status line, then for each line of code
/// its place in the program memory, from 0000, a blank and the code.
Lines listingOf(const std::string& status, const Lines& code);
/// The other way. Throws Failure, with the status line where that says "FAILED", when `listing`
/// is none.
Lines codeOfListing(const std::string& file, const Lines& listing);

}  // namespace zlt::standins
