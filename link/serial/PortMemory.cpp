#include "link/serial/PortMemory.h"

#include <algorithm>
#include <system_error>

#include "platform/Files.h"
#include "platform/Text.h"

namespace zlt {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t portsRemembered = 100;

std::string placeOf(PortNumber number) {
    std::error_code unknown;
    return portText(number) + ' ' + utf8FromPath(fs::current_path(unknown));
}

/// What a line of the file can hold.
std::string withoutMarks(std::string text) {
    for (char& c : text)
        if (c == '\t' || c == '\r' || c == '\n')
            c = ' ';
    return text;
}

}  // namespace

PortMemory::PortMemory(Files& files, const fs::path& dataFolder)
    : m_files(files), m_file(dataFolder.empty() ? fs::path() : dataFolder / "ports") {}

std::vector<PortMemory::Remembered>& PortMemory::all() {
    if (m_all)
        return *m_all;
    m_all.emplace();
    const auto text = m_file.empty() ? std::nullopt : m_files.read(m_file).whole();
    for (const std::string& line : splitLines(text.value_or("")))
        if (const auto tab = line.find('\t'); tab != std::string::npos)
            m_all->push_back({line.substr(0, tab), line.substr(tab + 1)});
    return *m_all;
}

void PortMemory::remember(PortNumber number, const PortEntry& entry) {
    if (m_file.empty() || entry.adapter.empty())
        return;
    const Remembered now{withoutMarks(placeOf(number)), withoutMarks(entry.adapter)};
    std::erase_if(all(), [&](const Remembered& one) { return one.place == now.place; });
    all().push_back(now);
    if (all().size() > portsRemembered)
        all().erase(all().begin());
    std::string text;
    for (const Remembered& one : all())
        text += one.place + '\t' + one.adapter + '\n';
    std::error_code failure;
    fs::create_directories(m_file.parent_path(), failure);
    // A help to the operator and no more: connecting goes on without it.
    (void)m_files.writeWhole(m_file, text);
}

std::string PortMemory::change(PortNumber number, const PortEntry& entry) {
    if (entry.adapter.empty())
        return {};
    const std::string place = withoutMarks(placeOf(number));
    const auto found = std::find_if(all().begin(), all().end(),
                                    [&](const Remembered& one) { return one.place == place; });
    if (found == all().end() || found->adapter == withoutMarks(entry.adapter))
        return {};
    return portText(number) + " was another one last time: " + found->adapter + ".";
}

}  // namespace zlt
