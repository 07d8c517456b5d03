#pragma once

#include <string_view>

#include "link/PanelLink.h"
#include "parameters/DeviceCopy.h"
#include "parameters/ParameterDown.h"
#include "parameters/ParameterTable.h"

namespace zlt {

/// Moves the set between the screen and the controller, and stores it to flash. A failed
/// exchange has shown its message and cleared the connected flag; nothing is sent after it.
class ParameterTransfer {
 public:
    /// `listener`, which may be null, hears of the transfer's own link.
    ParameterTransfer(const Services& services, const LinkHandOver& handOver, ParameterView& view,
                      LinkListener* listener = nullptr);

    /// Opens the port where the caller's was open. What fails here is told by the upload.
    void openPort() { m_link.openHandedOverPort(); }
    void closePort() { m_link.closePort(); }

    /// Reads the whole set into the screen. What could not be read stays as it was, and is named
    /// in one message at the end.
    void upload();
    /// Writes the whole set to the controller. Throws what ParameterView::values() throws, before
    /// anything is sent.
    void download();
    void storeToFlash();

    /// Stops the axis at once, whatever the flags say.
    void abortMotion() { m_link.abort(); }

    [[nodiscard]] const DeviceCopy& deviceCopy() const { return m_copy; }
    /// The device that is addressed.
    [[nodiscard]] const std::string& deviceId() const { return m_link.connection.deviceId; }
    /// Whether another device has answered on the bus with this ID.
    [[nodiscard]] bool isTaken(const std::string& deviceId) const {
        return isTakenOn(m_link, deviceId);
    }
    [[nodiscard]] FirmwareVersion firmware() const { return m_firmware; }

 private:
    bool ready();
    void read(const TransferStep& step);
    void disableUnread(FieldRange fields);
    void showUnread();
    /// Shows how a transfer came out; the screen is at rest again by then.
    void showResult(std::string_view message);

    const Services& m_services;
    ParameterView& m_view;
    FirmwareVersion m_firmware;
    ScreenLink m_link;
    DeviceCopy m_copy;
};

}  // namespace zlt
