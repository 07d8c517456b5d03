#include "programs/ToolRunner.h"

#include <algorithm>
#include <system_error>

#include "platform/FileNames.h"
#include "platform/Latin1.h"
#include "programs/ProgramText.h"
#include "programs/ToolResult.h"

namespace zlt {
namespace {

namespace fs = std::filesystem;

std::string folderOf(const fs::path& path) {
    return utf8FromPath(path.parent_path());
}

ToolError noResult(const Tool& tool, bool crashed, std::string_view result) {
    return ToolError("The tool " + nameOf(tool.path) +
                     (crashed ? " ended by a fault before it wrote its result, the file "
                              : " ended without writing its result, the file ") +
                     nameOf(result) + ".");
}

}  // namespace

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

bool ToolRunner::isThere(std::string_view file) const {
    return read(file).kind != FileContent::Kind::absent;
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

void ToolRunner::removeLeftOver(std::string_view file) {
    std::error_code failure;
    fs::remove(pathOf(file), failure);
    if (failure)
        throw ToolError("The file " + nameOf(file) +
                        " of an earlier run cannot be removed: " + failure.message());
}

bool ToolRunner::start(const Tool& tool) {
    const fs::path path = pathOf(tool.path);
    const ProcessEnd end = m_services.processes.runAndWait(path);
    if (end.kind != ProcessEnd::Kind::notStarted)
        return end.kind == ProcessEnd::Kind::crashed;
    std::error_code unknown;
    if (!fs::exists(path, unknown))
        throw ToolError("The tool " + nameOf(tool.path) + " is missing from the folder " +
                        folderOf(path) + ".");
    throw ToolError("The tool " + nameOf(tool.path) + " in the folder " + folderOf(path) +
                    " cannot be started: " + end.reason);
}

void ToolRunner::RunToolAndWait(const Tool& tool, std::string_view result) {
    // With the old result gone, whatever is there afterwards is this run's.
    const auto leftOver = read(result).whole();
    removeLeftOver(result);
    bool crashed = false;
    try {
        crashed = start(tool);
    } catch (const ToolError&) {
        if (leftOver)
            write(result, *leftOver);
        throw;
    }
    if (!isThere(result))
        throw noResult(tool, crashed, result);
}

void ToolRunner::runUnchecked(const Tool& tool, std::string_view leftOver) {
    removeLeftOver(leftOver);
    const bool crashed = start(tool);
    if (crashed && !isThere(leftOver))
        throw noResult(tool, crashed, leftOver);
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
    return *line;
}

}  // namespace zlt
