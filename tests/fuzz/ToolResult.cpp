// The external tools' result files: whatever a tool wrote, line 1 alone judges it, and a line
// that is named for the editor is one that can be named.

#include <algorithm>

#include "Check.h"
#include "programs/ToolRunner.h"

void zlt::fuzz::check(std::string_view input) {
    const std::string result(input);
    const std::string first = result.substr(0, result.find_first_of("\r\n"));
    ZLT_CHECK(saysFailed(first) == saysFailed(result));
    ZLT_CHECK(!saysFailed("OK\r\n" + result));
    ZLT_CHECK(saysFailed("Compile Failed\n" + result));

    const int count = compiledLineCount(result);
    const auto ends =
        std::count_if(result.begin(), result.end(), [](char c) { return c == '\r' || c == '\n'; });
    ZLT_CHECK(count >= -1 && count <= ends);
    ZLT_CHECK(compiledLineCount("OK\r\n" + result) == count + 1);

    if (const auto line = compileErrorLine(result)) {
        ZLT_CHECK(*line >= -32768 && *line <= lineBeyond);
        ZLT_CHECK(result.find("Line") != std::string::npos);
    }
    ZLT_CHECK(compileErrorLine(result + "\nLine: 12\r\nhere") == 12);
    ZLT_CHECK(compileErrorLine(result + "\nLine: 32768") == lineBeyond);
}
