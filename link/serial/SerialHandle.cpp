#include "link/serial/SerialHandle.h"

#include <unistd.h>

#include <QtGlobal>
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
    return access(device.c_str(), R_OK | W_OK) == 0;
}

}  // namespace zlt
