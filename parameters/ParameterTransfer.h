#pragma once

#include <string_view>

#include "link/PanelLink.h"
#include "parameters/ParameterView.h"

namespace zlt {

/// Moves the set between the screen and the controller, and stores it to flash. A failed
/// exchange has shown its message and cleared the connected flag; nothing is sent after it.
class ParameterTransfer {
 public:
    ParameterTransfer(const Services& services, const LinkHandOver& handOver, ParameterView& view);

    /// Opens the port where the caller's was open. What fails here is told by the upload.
    void openPort() { m_link.openHandedOverPort(); }
    void closePort() { m_link.closePort(); }

    /// Reads the whole set into the screen. Throws ConversionError, the rest left as it was,
    /// at a reply that should be a number and is none.
    void upload();
    /// Writes the whole set to the controller. Throws NotLatin1 and ControlCharacter before
    /// anything is sent.
    void download();
    void storeToFlash();

    /// Stops the axis at once, whatever the flags say.
    void abortMotion() { m_link.abort(); }

    const DeviceCopy& deviceCopy() const { return m_copy; }
    /// The device that is addressed.
    const std::string& deviceId() const { return m_link.connection.deviceId; }
    FirmwareVersion firmware() const { return m_firmware; }

 private:
    /// What the operator is told of a change that was asked about first.
    struct ChangeMessages {
        std::string_view done;
        std::string_view failed;
    };

    bool ready();
    void read(const TransferStep& step);
    void disableUnread(FieldRange fields);
    void write(const Parameter& parameter, const ParameterValues& values);
    void writeDeviceId(const Parameter& parameter, const ParameterValues& values);
    void writeBaudRate(const Parameter& parameter, const ParameterValues& values);
    void carryOut(const ChangeMessages& messages, const Parameter& parameter,
                  const ParameterValues& values);
    bool send(std::string_view command, const Parameter& parameter, const ParameterValues& values);
    void note(const FieldText& word);
    /// Shows how a transfer came out; the screen is at rest again by then.
    void showResult(std::string_view message);

    const Services& m_services;
    ParameterView& m_view;
    FirmwareVersion m_firmware;
    ScreenLink m_link;
    DeviceCopy m_copy;
};

}  // namespace zlt
