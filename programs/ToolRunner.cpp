#include "programs/ToolRunner.h"

#include <algorithm>
#include <cstdint>
#include <system_error>

#include "platform/Files.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"
#include "programs/ProgramText.h"

namespace zlt {
namespace {

namespace fs = std::filesystem;

std::string folderOf(const fs::path& path) {
    return utf8FromPath(path.parent_path());
}

/// The end of a message about a tool that had no result to give.
std::string lastLines(std::string_view printed) {
    constexpr std::size_t most = 20;
    const auto lines = splitLines(printed);
    std::string text;
    for (std::size_t i = lines.size() > most ? lines.size() - most : 0; i < lines.size(); ++i)
        text += lines[i] + "\r\n";
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return isControlCharacter(c) && c != '\r' && c != '\n'; }, '?');
    return text.empty() ? text : "  It printed:\r\n\r\n" + text;
}

/// A tool's result of an earlier run, under another name as long as this stands. Then it is back,
/// in place of whatever the tool wrote, unless there is a new one.
class ResultBefore {
 public:
    explicit ResultBefore(fs::path result) : m_result(std::move(result)), m_aside(m_result) {
        m_aside += ".before";
        std::error_code failure;
        if (!fs::exists(m_result, failure))
            return;
        fs::rename(m_result, m_aside, failure);
        if (failure)
            throw ToolError("The file " + utf8FromPath(m_result.filename()) +
                            " of an earlier run cannot be moved aside: " + failure.message());
    }
    ~ResultBefore() {
        std::error_code ignored;
        fs::remove(m_superseded ? m_aside : m_result, ignored);
        if (!m_superseded)
            fs::rename(m_aside, m_result, ignored);
    }
    ResultBefore(const ResultBefore&) = delete;
    ResultBefore& operator=(const ResultBefore&) = delete;

    void supersede() { m_superseded = true; }

 private:
    fs::path m_result;
    fs::path m_aside;
    bool m_superseded = false;
};

/// What stands in the number's place of each line of a result that names a program line.
std::vector<std::string> namedLines(std::string_view result) {
    constexpr std::size_t numberFrom = 6;  // counted from 0: the 7th character
    std::vector<std::string> named;
    for (const std::string& line : splitLines(result))
        if (line.find("Line") != std::string::npos)
            named.push_back(line.size() > numberFrom ? line.substr(numberFrom) : std::string());
    return named;
}

}  // namespace

bool saysFailed(std::string_view result) {
    const auto lines = splitLines(result);
    const std::string status = lines.empty() ? "" : lines.front();
    return status.find("FAILED") != std::string::npos || status.find("Failed") != std::string::npos;
}

int compiledLineCount(std::string_view result) {
    return static_cast<int>(splitLines(result).size()) - 1;
}

std::optional<int> compileErrorLine(std::string_view result) {
    const auto all = namedLines(result);
    const std::string named = all.empty() ? std::string() : all.back();
    const auto number = parseInteger(named);
    if (number && *number >= INT16_MIN)
        return std::min(*number, lineBeyond);
    // Digits that are no number are too many of them.
    const bool tooMany = named.find_first_of("0123456789") != std::string::npos &&
                         named.find_first_not_of("0123456789 ") == std::string::npos;
    return tooMany ? std::optional(lineBeyond) : std::nullopt;
}

std::vector<int> compileErrorLines(std::string_view result) {
    std::vector<int> lines;
    for (const std::string& named : namedLines(result))
        if (const auto number = parseInteger(named); number && *number > 0 && *number < lineBeyond)
            lines.push_back(*number);
    return lines;
}

std::string nameOf(std::string_view file) {
    return std::string(file.substr(file.find_last_of('\\') + 1));
}

fs::path ToolRunner::pathOf(std::string_view file) const {
    if (m_services.ownFolder.empty())
        throw ToolError("The name of the panel's own folder is not valid text.  Please rename it.");
    std::string below(file.substr(1));
    std::replace(below.begin(), below.end(), '\\', '/');
    return m_services.ownFolder / below;
}

FileContent ToolRunner::read(std::string_view file) const {
    return m_services.files.read(pathOf(file));
}

std::string ToolRunner::readResult(std::string_view file) const {
    FileContent result = read(file);
    if (result.kind != FileContent::Kind::whole)
        throw ToolError("The tool's result " + nameOf(file) +
                        " cannot be read whole: " + result.reason + ".");
    return std::move(result.bytes);
}

void ToolRunner::write(std::string_view file, std::string_view bytes) {
    const fs::path path = pathOf(file);
    std::error_code unknown;
    if (!fs::is_directory(path.parent_path(), unknown))
        throw ToolError("The folder of the external tools is missing: " + folderOf(path));
    if (const auto failure = m_services.files.writeWhole(path, bytes))
        throw ToolError("The file " + nameOf(file) + " cannot be written into the folder " +
                        folderOf(path) + ": " + failure->reason + ".");
}

void ToolRunner::writeSetup(std::string_view file, const std::vector<SetupEntry>& entries) {
    std::string text;
    for (const SetupEntry& entry : entries)
        text += std::string(entry.key) + ":" + entry.value + "\r\n";
    write(file, text);
}

std::string ToolRunner::start(const Tool& tool) {
    const fs::path path = m_services.processes.fileOf(pathOf(tool.path));
    const std::string name = utf8FromPath(path.filename());
    m_view->keepUnsaved();
    ProcessEnd end = m_services.processes.runAndWait(
        path, [&](std::int64_t process) { m_view->showRunningTool(name, process); });
    m_view->clearRunningTool();
    if (end.kind == ProcessEnd::Kind::exited)
        return std::move(end.printed);
    if (end.kind == ProcessEnd::Kind::crashed)
        throw ToolError("The tool " + name +
                        " ended by a fault, or was ended.  Whatever it wrote is not used." +
                        lastLines(end.printed));
    std::error_code unknown;
    if (!fs::exists(path, unknown))
        throw ToolError("The tool " + name + " is missing from the folder " + folderOf(path) + ".");
    throw ToolError("The tool " + name + " in the folder " + folderOf(path) +
                    " cannot be started: " + end.reason);
}

void ToolRunner::RunToolAndWait(const Tool& tool, std::string_view result) {
    // With the old result gone, whatever is there afterwards is this run's.
    ResultBefore before(pathOf(result));
    const std::string printed = start(tool);
    if (read(result).kind == FileContent::Kind::absent)
        throw ToolError("The tool " + nameOf(tool.path) +
                        " ended without writing its result, the file " + nameOf(result) + "." +
                        lastLines(printed));
    before.supersede();
}

void ToolRunner::runUnchecked(const Tool& tool, std::string_view leftOver) {
    std::error_code failure;
    fs::remove(pathOf(leftOver), failure);
    if (failure)
        throw ToolError("The file " + nameOf(leftOver) +
                        " of an earlier run cannot be removed: " + failure.message());
    start(tool);
}

bool ToolRunner::CheckToolResult(std::string_view result) {
    const std::string text = readResult(result);
    if (!saysFailed(text)) {
        m_services.gate.message("Done!");
        return true;
    }
    m_services.gate.message(utf8FromLatin1(textOfLines(text)));
    return false;
}

int ToolRunner::CountCompiledLines() const {
    return compiledLineCount(readResult(toolfiles::compiled));
}

int ToolRunner::ReadCompileErrorLine() const {
    const auto line = compileErrorLine(readResult(toolfiles::compiled));
    if (!line)
        throw ToolError("The compiler's result names no program line that it stumbled over.");
    if (*line == lineBeyond)
        throw ToolError(
            "The compiler names a program line beyond 32767, the last one that can be "
            "selected.");
    return *line;
}

}  // namespace zlt
