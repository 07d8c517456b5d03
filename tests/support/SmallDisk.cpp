#include "support/SmallDisk.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <csignal>
#include <string>

namespace zlt::test {
namespace {

/// Mounts in a name space of the test program's own, which ends with it.
bool mountDisk(const std::filesystem::path& folder) {
    const std::string size = "mode=777,size=" + std::to_string(SmallDisk::size);
    return ::unshare(CLONE_NEWNS) == 0 &&
           ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

void limitFiles(rlim_t size) {
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = std::min(size, limit.rlim_max);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

}  // namespace

SmallDisk::SmallDisk(std::filesystem::path folder) : m_folder(std::move(folder)) {
    std::filesystem::create_directories(m_folder);
    m_mounted = mountDisk(m_folder);
    if (m_mounted)
        return;
    std::signal(SIGXFSZ, SIG_IGN);
    limitFiles(size);
}

SmallDisk::~SmallDisk() {
    if (m_mounted)
        ::umount2(m_folder.c_str(), MNT_DETACH);
    else
        limitFiles(RLIM_INFINITY);
}

}  // namespace zlt::test
