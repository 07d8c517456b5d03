#include "simulator/TrafficLog.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "simulator/Text.h"

namespace zlt::sim {

TrafficLog::TrafficLog(const std::string& file, Time start)
    : m_file(file, std::ios::trunc), m_start(start) {
    if (!m_file)
        throw std::system_error(errno, std::generic_category(), file);
}

void TrafficLog::write(Time when, std::string_view port, bool outgoing, std::string_view bytes) {
    char seconds[32];
    const double passed = std::chrono::duration<double>(when - m_start).count();
    std::snprintf(seconds, sizeof seconds, "%.6f", passed);
    m_file << seconds << ' ' << port << (outgoing ? " > " : " < ") << escaped(bytes) << std::endl;
}

}  // namespace zlt::sim
