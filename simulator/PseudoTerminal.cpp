#include "simulator/PseudoTerminal.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace zlt::sim {
namespace {

[[noreturn]] void fail(int error, const std::string& name) {
    throw std::system_error(error, std::generic_category(), "cannot make the link " + name);
}

struct Speed {
    long baud;
    speed_t code;
};

constexpr std::array speeds{
    Speed{1200, B1200},   Speed{2400, B2400},     Speed{4800, B4800},
    Speed{9600, B9600},   Speed{19200, B19200},   Speed{38400, B38400},
    Speed{57600, B57600}, Speed{115200, B115200}, Speed{230400, B230400},
};

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

void closeFile(int& file) {
    if (file >= 0)
        ::close(std::exchange(file, -1));
}

}  // namespace

PortLink::~PortLink() {
    remove();
}

PortLink::PortLink(PortLink&& other) noexcept
    : m_name(std::exchange(other.m_name, {})), m_target(std::exchange(other.m_target, {})) {}

void PortLink::pointTo(const std::string& target) {
    struct stat found {};
    if (::lstat(m_name.c_str(), &found) == 0) {
        if (!S_ISLNK(found.st_mode))
            fail(EEXIST, m_name);
    }
    // Made beside and moved over, so that there is no moment without a link.
    const std::string fresh = m_name + ".new";
    ::unlink(fresh.c_str());
    if (::symlink(target.c_str(), fresh.c_str()) != 0 ||
        ::rename(fresh.c_str(), m_name.c_str()) != 0)
        fail(errno, m_name);
    m_target = target;
}

void PortLink::remove() {
    std::error_code error;
    if (!m_target.empty() && std::filesystem::read_symlink(m_name, error) == m_target)
        ::unlink(m_name.c_str());
    m_target.clear();
}

PseudoTerminal::~PseudoTerminal() {
    hangUp();
}

void PseudoTerminal::open(long baud) {
    hangUp();
    m_master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    std::array<char, 128> name{};
    if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0 ||
        ::ptsname_r(m_master, name.data(), name.size()) != 0)
        fail("cannot make a pseudo-terminal");
    m_path = name.data();
    m_slave = ::open(m_path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    if (m_slave < 0 || ::tcgetattr(m_slave, &settings) != 0)
        fail(m_path);
    ::cfmakeraw(&settings);
    for (const Speed& speed : speeds)
        if (speed.baud == baud)
            ::cfsetspeed(&settings, speed.code);
    if (::tcsetattr(m_slave, TCSANOW, &settings) != 0)
        fail(m_path);
    m_watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_watch < 0 || ::inotify_add_watch(m_watch, m_path.c_str(), IN_OPEN | IN_CLOSE) < 0)
        fail("cannot watch " + m_path);
}

void PseudoTerminal::hangUp() {
    closeFile(m_watch);
    closeFile(m_master);
    closeFile(m_slave);
    m_clients = 0;
    m_presumed = false;
}

std::string PseudoTerminal::read() {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(m_master, buffer.data(), buffer.size());
    return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string();
}

void PseudoTerminal::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(m_master, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

long PseudoTerminal::baud() const {
    termios settings{};
    if (::tcgetattr(m_master, &settings) != 0)
        return 0;
    for (const Speed& speed : speeds)
        if (speed.code == ::cfgetospeed(&settings))
            return speed.baud;
    return 0;
}

bool PseudoTerminal::clientChanged() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    bool changed = false;
    ssize_t count = 0;
    while ((count = ::read(m_watch, buffer.data(), buffer.size())) > 0) {
        for (std::size_t at = 0; at < static_cast<std::size_t>(count);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            at += sizeof event + event.len;
            if ((event.mask & IN_OPEN) != 0) {
                if (m_clients++ == 0) {
                    forgetClient();
                    changed = true;
                }
            } else if ((event.mask & IN_CLOSE) != 0 && m_clients > 0 && --m_clients == 0) {
                forgetClient();
                ::ioctl(m_slave, TIOCNXCL);
                changed = true;
            }
        }
    }
    return changed;
}

void PseudoTerminal::forgetClient() {
    ::tcflush(m_slave, TCIFLUSH);
    m_presumed = false;
}

}  // namespace zlt::sim
