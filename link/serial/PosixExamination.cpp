// What can be seen of a device without opening it: by its file, its owner, and who holds it.

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtGlobal>
#include <fstream>
#include <sstream>

#include "link/serial/LineClaim.h"
#include "link/serial/PortObstacle.h"
#include "link/serial/SerialHandle.h"
#ifdef Q_OS_LINUX
#include <sys/sysmacros.h>
#endif

namespace zlt {
namespace {

#ifdef Q_OS_LINUX
/// A line of /proc/tty/drivers: "usbserial            /dev/ttyUSB   188 0-511 serial" (the name in
/// front may hold blanks). Whether the driver has this device.
bool drives(const std::string& line, dev_t device) {
    const auto path = line.find(" /dev/");
    if (path == std::string::npos)
        return false;
    std::istringstream fields(line.substr(path));
    std::string prefix;
    unsigned kind = 0, first = 0;
    fields >> prefix >> kind >> first;
    unsigned last = first;
    if (fields.peek() == '-')
        fields.ignore() >> last;
    return kind == major(device) && first <= minor(device) && minor(device) <= last;
}
#endif

/// Whether a character device is a terminal, by what the kernel says of its number: to open it
/// and ask would raise its lines.
bool isTerminal(const struct stat& status) {
    if (!S_ISCHR(status.st_mode))
        return false;
#ifdef Q_OS_LINUX
    std::ifstream drivers("/proc/tty/drivers");
    if (!drivers)
        return true;
    for (std::string line; std::getline(drivers, line);)
        if (drives(line, status.st_rdev))
            return true;
    return false;
#else
    return true;
#endif
}

std::string userName() {
    const passwd* user = getpwuid(getuid());
    return user ? user->pw_name : "$USER";
}

/// By the group database, which a session that began earlier has not read.
bool isMember(const group& owner, const std::string& user) {
    for (char** member = owner.gr_mem; member && *member; ++member)
        if (user == *member)
            return true;
    return false;
}

void examineRights(const std::string& device, const struct stat& status, PortFindings& findings) {
    findings.mayOpen = mayReadAndWrite(device);
    findings.user = userName();
    constexpr mode_t groupMayUse = S_IRGRP | S_IWGRP;
    if (findings.mayOpen || (status.st_mode & groupMayUse) != groupMayUse)
        return;
    if (const group* owner = getgrgid(status.st_gid)) {
        findings.group = owner->gr_name;
        findings.inGroupAlready = isMember(*owner, findings.user);
    }
}

}  // namespace

void examineDevice(PortFindings& findings) {
    const std::string& device = findings.entry.device;
    struct stat status {};
    findings.exists = stat(device.c_str(), &status) == 0;
    if (!findings.exists)
        return;
    findings.serial = isTerminal(status);
    examineRights(device, status, findings);
    findings.users = otherUsersOf(device);
    const auto lockFile = lockFileOf(device);
    const bool refused = lockFile && !lockFile->mayBeTaken;
    if (refused && !lockFile->holderLives)
        findings.deadLock = lockFile->path;
    if (findings.last.holderSeen && findings.users.empty() && !refused)
        findings.last = {};  // the port is free by now
}

}  // namespace zlt
