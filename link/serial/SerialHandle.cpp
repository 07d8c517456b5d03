#include "link/serial/SerialHandle.h"

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <asm/termbits.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#endif

namespace zlt {

void askForLowLatency(SerialHandle handle) {
#ifdef Q_OS_LINUX
    serial_struct settings{};
    if (ioctl(handle, TIOCGSERIAL, &settings) != 0)
        return;
    settings.flags |= ASYNC_LOW_LATENCY;
    ioctl(handle, TIOCSSERIAL, &settings);
#else
    (void)handle;
#endif
}

std::optional<int> baudRateInUse(SerialHandle handle) {
#ifdef Q_OS_LINUX
    termios2 settings{};
    if (ioctl(handle, TCGETS2, &settings) == 0)
        return static_cast<int>(settings.c_ospeed);
#else
    (void)handle;
#endif
    return std::nullopt;
}

bool mayReadAndWrite(const std::string& device) {
#ifdef Q_OS_UNIX
    return access(device.c_str(), R_OK | W_OK) == 0;
#else
    (void)device;
    return true;
#endif
}

std::string canonicalDevice(const std::string& device) {
#ifdef Q_OS_WIN
    return device;  // a port has one name there, and asking for its path would open it
#else
    std::error_code missing;
    const auto path = std::filesystem::canonical(device, missing);
    return missing ? device : path.string();
#endif
}

}  // namespace zlt
