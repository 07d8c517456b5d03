#pragma once

#include <string>
#include <string_view>

#include "panel/TrendRecord.h"

namespace zlt {

/// How a file names what the axis does, and what a program does: no table program takes it for a
/// formula, as it would "-LIM ERR".
std::string_view trendWord(MotionState motion);
std::string_view trendWord(ProgramState state);

/// The whole record as comma-separated values, UTF-8: a line of headings, then a line a pass, ended
/// by CR LF, with the time in seconds since the record began. A gap is an empty line; what is not
/// known is an empty field.
std::string trendCsv(const TrendRecord& record);

}  // namespace zlt
