#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "parameters/ParameterTable.h"

namespace zlt {

/// A parameter file that is short or holds something else than its layout. what() names the
/// line and what was expected there, UTF-8.
class MalformedParameterFile : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The twelve lines of a parameter file, each ended by CR LF.
std::string parameterFileText(const ParameterValues& values);

/// What a parameter file says, by line position; lines after the twelfth are ignored. Throws
/// MalformedParameterFile.
std::vector<FieldText> readParameterFile(std::string_view bytes);

}  // namespace zlt
