#include "bench/RawClient.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace zlt::bench {
namespace {

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

speed_t speedCode(long baud) {
    switch (baud) {
        case 9600:
            return B9600;
        case 38400:
            return B38400;
        case 115200:
            return B115200;
        default:
            throw std::invalid_argument("no such baud rate: " + std::to_string(baud));
    }
}

}  // namespace

void RawClient::open() {
    m_device = ::open(peer().device().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    if (m_device < 0 || tcgetattr(m_device, &settings) != 0)
        fail(peer().device());
    cfmakeraw(&settings);
    settings.c_cflag |= CLOCAL | CREAD;
    // Reads block until there is a byte. After a second without one they end with nothing.
    settings.c_cc[VMIN] = 0;
    settings.c_cc[VTIME] = 10;
    cfsetspeed(&settings, speedCode(peer().line().baud));
    if (tcsetattr(m_device, TCSANOW, &settings) != 0 || tcflush(m_device, TCIOFLUSH) != 0)
        fail(peer().device());
}

void RawClient::close() {
    if (m_device >= 0)
        ::close(std::exchange(m_device, -1));
}

bool RawClient::exchange() {
    peer().requestComing();
    if (::write(m_device, request.data(), request.size()) != static_cast<ssize_t>(request.size()))
        fail("cannot write to " + peer().device());
    peer().requestWritten();

    std::string line;
    while (!line.ends_with(reply.back())) {
        std::array<char, 64> bytes{};
        const ssize_t count = ::read(m_device, bytes.data(), bytes.size());
        if (count < 0)
            fail("cannot read from " + peer().device());
        if (count == 0)
            return false;
        line.append(bytes.data(), static_cast<std::size_t>(count));
    }
    if (line != reply)
        throw std::runtime_error("the C loop got the reply \"" + line + "\"");
    return true;
}

}  // namespace zlt::bench
