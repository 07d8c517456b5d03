#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "link/Services.h"

namespace zlt {

/// An external tool, or its folder, that did not do its part. what() is a sentence for the
/// operator, UTF-8.
class ToolError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// An external command-line tool: its path below the panel's own folder.
struct Tool {
    std::string_view path;
};
inline constexpr Tool compiler{R"(\EXE\SA_Compile_Decompile)"};
inline constexpr Tool downloader{R"(\EXE\SA_Download_Upload)"};

/// The files that are exchanged with the tools, below the panel's own folder.
namespace toolfiles {
inline constexpr std::string_view program = R"(\EXE\Program.prg)";
inline constexpr std::string_view compilerSetup = R"(\EXE\sa_compile_decompile_setup.txt)";
inline constexpr std::string_view compiled = R"(\EXE\CompileOut.txt)";
inline constexpr std::string_view decompiled = R"(\EXE\DecompileOut.prg)";
inline constexpr std::string_view downloaderSetup = R"(\EXE\sa_download_upload_setup.txt)";
inline constexpr std::string_view downloaded = R"(\EXE\DownloadOut.txt)";
inline constexpr std::string_view uploaded = R"(\EXE\UploadOut.txt)";
}  // namespace toolfiles

/// The own name of one of these files, or of a tool: what follows the last backslash.
std::string nameOf(std::string_view file);

/// One entry of a setup file: a three-letter key and its value (Latin-1).
struct SetupEntry {
    std::string_view key;
    std::string value;
};

// What the external tools' result files say. Their texts are Latin-1, as read.

/// Whether the tool failed: its first line, and nothing else, says so.
bool saysFailed(std::string_view result);

/// The number of lines in a compiler's result less one, its status line.
int compiledLineCount(std::string_view result);

/// Stands for any program line beyond the 32767 that 16 bits hold.
inline constexpr int lineBeyond = 32768;

/// The program line that a failed compile names last, at most lineBeyond. Nothing when it names
/// none, or one below 16 bits.
std::optional<int> compileErrorLine(std::string_view result);

/// Every program line that a failed compile names, within 16 bits and from 1, as it names them.
std::vector<int> compileErrorLines(std::string_view result);

/// What the form does while the panel waits for a tool.
class ToolRunView {
 public:
    virtual ~ToolRunView() = default;

    /// Keeps a text that is not saved, whatever becomes of the panel during the run.
    virtual void keepUnsaved() = 0;
    /// Shows at once, before the panel stands still, which tool runs in which process.
    virtual void showRunningTool(std::string_view tool, std::int64_t process) = 0;
    virtual void clearRunningTool() = 0;
};

/// Runs the external tools, which are driven through files alone.
class ToolRunner {
 public:
    ToolRunner(const Services& services, ToolRunView& view) : m_services(services), m_view(&view) {}

    /// Tells this view of the runs from here on.
    void workOn(ToolRunView& view) { m_view = &view; }

    /// Writes one of the files a tool reads. Throws ToolError when the folder is missing or
    /// cannot be written.
    void write(std::string_view file, std::string_view bytes);
    void writeSetup(std::string_view file, const std::vector<SetupEntry>& entries);

    /// Starts a tool and waits for it to end. A result left from an earlier run is out of the
    /// way meanwhile, and back where there is no new one. Throws ToolError when the tool is
    /// missing, does not start, leaves no `result`, or ends by a fault, whatever it wrote.
    void RunToolAndWait(const Tool& tool, std::string_view result);
    /// The same for a run whose result is not looked at: `leftOver` is removed before it for good.
    void runUnchecked(const Tool& tool, std::string_view leftOver);

    /// Judges a result file by its first line and shows the one message: "Done!", or the
    /// whole file when that line holds "FAILED" or "Failed". True for success.
    bool CheckToolResult(std::string_view result);

    /// The number of lines in the compiler's result less one, its status line.
    [[nodiscard]] int CountCompiledLines() const;

    /// The program line that a failed compile names last, within 16 bits. Throws ToolError
    /// when it names none, or one beyond.
    [[nodiscard]] int ReadCompileErrorLine() const;

    /// A file below the panel's own folder. Throws ToolError when that folder's name cannot be
    /// told, as all here do.
    [[nodiscard]] FileContent read(std::string_view file) const;
    /// What a tool wrote. Throws ToolError when that cannot be had whole.
    [[nodiscard]] std::string readResult(std::string_view file) const;

 private:
    [[nodiscard]] std::filesystem::path pathOf(std::string_view file) const;
    /// Runs a tool to its own end and returns what it printed last. Throws ToolError for any other.
    std::string start(const Tool& tool);

    const Services& m_services;
    ToolRunView* m_view;
};

}  // namespace zlt
