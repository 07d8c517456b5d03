#pragma once

#include <filesystem>
#include <string>

#include "platform/Files.h"

namespace zlt {

/// The operator's file that the program text was read from or saved to, and what it held then:
/// another program may write to it meanwhile.
class ProgramFile {
 public:
    /// `files` outlives this.
    explicit ProgramFile(Files& files) : m_files(files) {}

    /// The text belongs to this file from now on, which holds `bytes`.
    void belongsTo(const std::filesystem::path& file, std::string bytes);
    /// The text belongs to no file any more.
    void forget() { belongsTo({}, {}); }

    [[nodiscard]] bool known() const { return !m_file.empty(); }
    [[nodiscard]] const std::filesystem::path& path() const { return m_file; }
    /// Its name without its folder, UTF-8; empty while there is none.
    [[nodiscard]] std::string name() const;

    enum class OnDisk { asKnown, changed, gone };
    /// What has become of the file; `gone` also when it cannot be read whole. Without a file
    /// everything is as known.
    OnDisk look();
    /// What look() has read of a changed file. Latin-1, as it stands there.
    [[nodiscard]] const std::string& found() const { return m_found; }
    /// What look() has found is known from now on.
    void takeNote() { m_bytes = m_found; }

 private:
    Files& m_files;
    std::filesystem::path m_file;
    std::string m_bytes;
    std::string m_found;
};

}  // namespace zlt
