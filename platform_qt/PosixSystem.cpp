#include <unistd.h>

#include <QFileDevice>
#include <cerrno>
#include <system_error>

#include "platform_qt/QtSystem.h"
#include "platform_qt/ThisSystem.h"

namespace zlt {

std::unique_ptr<Waits> makeWaits() {
    return std::make_unique<ThreadWaits>();
}

std::unique_ptr<Processes> makeProcesses() {
    return std::make_unique<QtProcesses>();
}

std::optional<std::string> synchronise(const QFileDevice& file) {
    if (::fsync(file.handle()) != 0 && errno != EINVAL && errno != EROFS && errno != ENOSYS)
        return std::generic_category().message(errno);
    return std::nullopt;
}

}  // namespace zlt
