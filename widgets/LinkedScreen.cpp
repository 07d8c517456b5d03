#include "widgets/LinkedScreen.h"

#include <utility>

#include "widgets/StopButton.h"

namespace zlt {

void LinkedScreen::connectAbort(StopBox& box, std::string_view deviceId,
                                std::function<void()> abort) {
    box.showDevice(deviceId);
    const auto stop = [this, abort = std::move(abort)] {
        noteAxisStopped();
        abort();
    };
    connectStop(box.stop(), stop, StopKey::f12);
}

}  // namespace zlt
