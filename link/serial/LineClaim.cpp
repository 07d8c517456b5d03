#include "link/serial/LineClaim.h"

#include <QtGlobal>

#include "link/serial/LockFile.h"
#include "link/serial/PortUsers.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace zlt {

#ifdef Q_OS_UNIX

namespace {

/// Whether somebody opened the line for himself alone. Everybody but root is refused by then. The
/// mark may outlive its program on a line that is never quite closed: it counts while somebody
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

/// A device that knows no such lock has nobody who holds it by one.
bool LineClaim::lock() {
    return flock(m_handle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void LineClaim::release() {
    if (m_handle >= 0)
        ::close(m_handle);
    m_handle = -1;
}

#else

bool LineClaim::take(const std::string&) {
    return true;
}

void LineClaim::release() {}

#endif

}  // namespace zlt
