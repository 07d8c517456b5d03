#include "link/serial/LineClaim.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "link/serial/PortUsers.h"
#include "link/serial/SerialDevices.h"

namespace zlt {
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

/// Whether another program opened the line for itself alone. All but root are refused by then. The
/// mark may outlive its program on a line that is never quite closed: it counts while some program
/// has the line open.
bool openedExclusively(int handle, const std::string& device) {
#ifdef TIOCGEXCL
    int exclusive = 0;
    return ioctl(handle, TIOCGEXCL, &exclusive) == 0 && exclusive != 0 && isOpenElsewhere(device);
#else
    (void)handle;
    (void)device;
    return false;
#endif
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

bool LineClaim::take(const std::string& device) {
    release();
    // Even opening raises the line's outputs: the lock file first.
    const auto lockFile = lockFileOf(device);
    if (lockFile && !lockFile->mayBeTaken)
        return false;
    m_handle = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_handle < 0)
        return errno != EBUSY;
    if (lock() && !openedExclusively(m_handle, device))
        return true;
    release();
    return false;
}

/// A device that knows no such lock is held by none.
bool LineClaim::lock() {
    return flock(m_handle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void LineClaim::release() {
    if (m_handle >= 0)
        ::close(m_handle);
    m_handle = -1;
}

}  // namespace zlt
