#include "faults/FakeDevice.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace zlt::test {

FakeDevice::FakeDevice(Answer answer) : m_answer(std::move(answer)) {
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
        throw std::runtime_error("no pseudo-terminal");
    m_path = ptsname(m_master);
    m_slave = open(m_path.c_str(), O_RDWR | O_NOCTTY);
    m_thread = std::thread([this] { serve(); });
}

FakeDevice::~FakeDevice() {
    m_ended = true;
    m_thread.join();
    close(m_slave);
    close(m_master);
}

void FakeDevice::serve() {
    std::string request;
    while (!m_ended) {
        pollfd input{m_master, POLLIN, 0};
        std::array<char, 256> bytes{};
        if (poll(&input, 1, 20) <= 0)
            continue;
        const ssize_t count = read(m_master, bytes.data(), bytes.size());
        for (const char byte : std::string_view(bytes.data(), count > 0 ? std::size_t(count) : 0)) {
            if (byte != '\r') {
                request += byte;
                continue;
            }
            write(m_answer(request));
            request.clear();
        }
    }
}

void FakeDevice::write(const std::string& bytes) {
    for (std::size_t done = 0; done < bytes.size() && !m_ended;) {
        const ssize_t count = ::write(m_master, bytes.data() + done, bytes.size() - done);
        pollfd output{m_master, POLLOUT, 0};
        if (count > 0)
            done += static_cast<std::size_t>(count);
        else
            poll(&output, 1, 20);
    }
}

}  // namespace zlt::test
