#include "programs/ProgramFile.h"

#include <utility>

namespace zlt {

void ProgramFile::belongsTo(const std::filesystem::path& file, std::string bytes) {
    m_file = file;
    m_bytes = std::move(bytes);
    m_found.clear();
}

std::string ProgramFile::name() const {
    return utf8FromPath(m_file.filename());
}

ProgramFile::OnDisk ProgramFile::look() {
    if (!known())
        return OnDisk::asKnown;
    auto now = m_files.read(m_file).whole();
    if (!now)
        return OnDisk::gone;
    m_found = *std::move(now);
    return m_found == m_bytes ? OnDisk::asKnown : OnDisk::changed;
}

}  // namespace zlt
