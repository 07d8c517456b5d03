#include "link/serial/LockFile.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "link/serial/SerialHandle.h"
#endif

namespace zlt {

#ifdef Q_OS_UNIX

namespace {

namespace fs = std::filesystem;

/// Whether the program of this number runs, and is still the one called `name`: numbers are
/// given anew. An empty name, as most programs leave, is any program's.
bool runs(int process, const std::string& name) {
    if (kill(process, 0) != 0 && errno == ESRCH)
        return false;
    std::error_code unknown;
    const auto program =
        fs::read_symlink(fs::path("/proc") / std::to_string(process) / "exe", unknown);
    return unknown || name.empty() || program.filename() == fs::path(name).filename();
}

bool mayRemove(const fs::path& file) {
    struct stat status {};
    return geteuid() == 0 || (stat(file.c_str(), &status) == 0 && status.st_uid == geteuid());
}

}  // namespace

std::optional<LockFile> lockFileOf(const std::string& device) {
    std::string name = fs::path(canonicalDevice(device)).lexically_relative("/dev").string();
    std::replace(name.begin(), name.end(), '/', '_');
    const fs::path path = fs::path("/var/lock") / ("LCK.." + name);
    std::ifstream file(path);
    LockFile lock{.path = path.string()};
    if (!(file >> lock.process) || lock.process <= 0)
        return std::nullopt;
    std::string program;
    std::getline(file >> std::ws, program);
    lock.holderLives = runs(lock.process, program);
    lock.mayBeTaken = !lock.holderLives && mayRemove(path);
    return lock;
}

#else

std::optional<LockFile> lockFileOf(const std::string&) {
    return std::nullopt;
}

#endif

}  // namespace zlt
