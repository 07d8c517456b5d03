#include "simulator/PortLink.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace zlt::sim {
namespace {

[[noreturn]] void fail(int error, const std::string& name) {
    throw std::system_error(error, std::generic_category(), "cannot make the link " + name);
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

}  // namespace zlt::sim
