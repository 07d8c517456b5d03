#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zlt::standins {

using Lines = std::vector<std::string>;

/// Why a tool did not do what it was asked for. what() goes into the first line of its result
/// file, after "FAILED"; further lines follow as they are.
class Failure : public std::runtime_error {
 public:
    explicit Failure(const std::string& reason, Lines further = {})
        : std::runtime_error(reason), m_further(std::move(further)) {}
    [[nodiscard]] const Lines& further() const { return m_further; }

 private:
    Lines m_further;
};

/// One run of a tool. It is told what to do by a setup file of lines KEY:VALUE in its own folder,
/// takes no arguments, and leaves a result file there.
class Tool {
 public:
    /// `name` is how the tool calls itself. `resultFile` is where it writes as long as nothing
    /// else is said.
    Tool(std::string name, std::string setupFile, std::string resultFile);

    /// Reads the setup file, does the work, which returns the result's lines or throws, and writes
    /// them. Returns the exit code: 0, or 1 when the result says "FAILED", as it does where the one
    /// meant does not fit on the disk, or cannot be written at all.
    int run(const std::function<Lines()>& work);

    void writeResultTo(std::string file) { m_resultFile = std::move(file); }
    /// A setup value without the blanks around it. Throws Failure when there is none.
    [[nodiscard]] const std::string& value(const std::string& key) const;
    /// The lines of a file in the tool's folder. Throws Failure when it cannot be read.
    [[nodiscard]] Lines read(const std::string& file) const;
    /// The first line of a good result.
    [[nodiscard]] std::string status(std::string_view text) const;

 private:
    void readSetup();
    [[nodiscard]] Lines failed(std::string_view reason, const Lines& further) const;
    // Writes the result beside its place and puts it there whole, or leaves what stands there.
    [[nodiscard]] bool write(const Lines& lines) const;

    std::string m_name;
    std::string m_setupFile;
    std::string m_resultFile;
    std::filesystem::path m_folder;
    std::map<std::string, std::string> m_setup;
};

}  // namespace zlt::standins
