#pragma once

#include <fstream>
#include <string>
#include <string_view>

#include "simulator/Time.h"

namespace zlt::sim {

/// A file with one line for each request and answer: seconds since the start, port, direction,
/// bytes.
class TrafficLog {
 public:
    /// Replaces the file. Throws std::system_error when it cannot be written.
    TrafficLog(const std::string& file, Time start);

    void write(Time when, std::string_view port, bool outgoing, std::string_view bytes);

 private:
    std::ofstream m_file;
    Time m_start;
};

}  // namespace zlt::sim
