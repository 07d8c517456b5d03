#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace zlt::test {

/// A device of a few lines behind a pseudo-terminal of its own, which answers as fast as it is
/// asked and writes what no controller would.
class FakeDevice {
 public:
    /// What it writes back to a request, end mark and all. Runs in a thread of its own.
    using Answer = std::function<std::string(const std::string& request)>;

    explicit FakeDevice(Answer answer);
    ~FakeDevice();
    FakeDevice(const FakeDevice&) = delete;
    FakeDevice& operator=(const FakeDevice&) = delete;

    const std::string& path() const { return m_path; }

 private:
    void serve();
    void write(const std::string& bytes);

    Answer m_answer;
    int m_master = -1;
    int m_slave = -1;  ///< kept, so that a client may come and go
    std::string m_path;
    std::atomic<bool> m_ended = false;
    std::thread m_thread;
};

}  // namespace zlt::test
