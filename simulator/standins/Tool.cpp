#include "simulator/standins/Tool.h"

#include <fstream>
#include <iostream>
#include <iterator>

#include "platform/Text.h"
#include "simulator/standins/OwnProgram.h"

namespace zlt::standins {
namespace {

std::string withoutBlanksAround(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

}  // namespace

Tool::Tool(std::string name, std::string setupFile, std::string resultFile)
    : m_name(std::move(name)),
      m_setupFile(std::move(setupFile)),
      m_resultFile(std::move(resultFile)) {}

int Tool::run(const std::function<Lines()>& work) {
    Lines result;
    bool good = false;
    try {
        m_folder = ownProgram().parent_path();
        readSetup();
        result = work();
        good = true;
    } catch (const Failure& failure) {
        result = failed(failure.what(), failure.further());
    } catch (const std::exception& error) {
        result = failed(error.what(), {});
    }
    if (!write(result)) {
        good = false;
        // A line may fit where a listing does not.
        if (!write(failed(m_resultFile + " cannot be written whole.", {})))
            std::cerr << m_name << ": cannot write " << m_folder / m_resultFile << "\n";
    }
    return good ? 0 : 1;
}

void Tool::readSetup() {
    for (const std::string& line : read(m_setupFile))
        if (const auto colon = line.find(':'); colon != std::string::npos)
            m_setup[line.substr(0, colon)] = withoutBlanksAround(line.substr(colon + 1));
}

const std::string& Tool::value(const std::string& key) const {
    const auto found = m_setup.find(key);
    if (found == m_setup.end() || found->second.empty())
        throw Failure(m_setupFile + " gives no value for " + key + ".");
    return found->second;
}

Lines Tool::read(const std::string& file) const {
    // A folder can be opened like a file, and fails only when it is read.
    if (std::error_code error; !std::filesystem::is_regular_file(m_folder / file, error))
        throw Failure("there is no file " + file + ".");
    std::ifstream stream(m_folder / file, std::ios::binary);
    if (!stream)
        throw Failure(file + " cannot be read.");
    return splitLines(std::string(std::istreambuf_iterator<char>(stream), {}));
}

std::string Tool::status(std::string_view text) const {
    return "OK - " + m_name + ": " + std::string(text);
}

Lines Tool::failed(std::string_view reason, const Lines& further) const {
    Lines lines{"FAILED - " + m_name + ": " + std::string(reason)};
    lines.insert(lines.end(), further.begin(), further.end());
    return lines;
}

bool Tool::write(const Lines& lines) const {
    const std::filesystem::path part = m_folder / (m_resultFile + ".part");
    std::ofstream file(part, std::ios::binary);
    for (const std::string& line : lines)
        file << line << "\r\n";
    file.close();  // flushes, and only then is it known whether everything fitted
    std::error_code failure;
    if (file.good())
        std::filesystem::rename(part, m_folder / m_resultFile, failure);
    const bool inPlace = file.good() && !failure;
    if (!inPlace)
        std::filesystem::remove(part, failure);
    return inPlace;
}

}  // namespace zlt::standins
