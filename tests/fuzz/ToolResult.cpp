// The external tools' result files: whatever a tool wrote, line 1 alone judges it, and a line
// that is named for the editor is one that can be named.

#include "programs/ToolResult.h"

#include <algorithm>
#include <string>

#include "tests/fuzz/Check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string result(zlt::fuzz::textOf(data, size));
    const std::string first = result.substr(0, result.find_first_of("\r\n"));
    ZLT_CHECK(zlt::saysFailed(first) == zlt::saysFailed(result));
    ZLT_CHECK(zlt::saysFailed("OK\r\n" + result) == false);
    ZLT_CHECK(zlt::saysFailed("Compile Failed\n" + result));

    const int count = zlt::compiledLineCount(result);
    const auto ends =
        std::count_if(result.begin(), result.end(), [](char c) { return c == '\r' || c == '\n'; });
    ZLT_CHECK(count >= -1 && count <= ends);
    ZLT_CHECK(zlt::compiledLineCount("OK\r\n" + result) == count + 1);

    if (const auto line = zlt::compileErrorLine(result)) {
        ZLT_CHECK(*line >= -32768 && *line <= 32767);
        ZLT_CHECK(result.find("Line") != std::string::npos);
    }
    ZLT_CHECK(zlt::compileErrorLine(result + "\nLine: 12\r\nhere") == 12);
    ZLT_CHECK(!zlt::compileErrorLine(result + "\nLine: 32768"));
    return 0;
}
