#pragma once

#include <string>
#include <string_view>

#include "link/ScreenLink.h"
#include "parameters/DeviceCopy.h"
#include "parameters/ParameterTable.h"
#include "parameters/ParameterView.h"

namespace zlt {

/// One Down: writes a set to the controller, device ID and baud rate after a question each.
class ParameterDown {
 public:
    /// All of it outlives the Down; `copy` takes in what the controller says.
    ParameterDown(Gate& gate, ParameterView& view, ScreenLink& link, DeviceCopy& copy,
                  FirmwareVersion firmware)
        : m_gate(gate), m_view(view), m_link(link), m_copy(copy), m_firmware(firmware) {}

    /// Writes these values in the order of Down, and tells how that came out.
    void write(const ParameterValues& values);

 private:
    /// What the operator is told of a change that was asked about first.
    struct ChangeMessages {
        std::string_view done;
        std::string_view failed;
    };

    bool writeAll(const ParameterValues& values);
    void writeDeviceId(const Parameter& parameter, const ParameterValues& values);
    void writeBaudRate(const Parameter& parameter, const ParameterValues& values);
    bool confirmDeviceId(const std::string& wanted);
    void carryOut(const ChangeMessages& messages, const Parameter& parameter,
                  const ParameterValues& values);
    bool send(const Parameter& parameter, const ParameterValues& values);
    void noteCurrent(const Parameter& parameter, const std::string& reply);
    void noteRefused(const Parameter& parameter, const ParameterValues& values,
                     const std::string& command, const std::string& reply);
    void showResult(std::string_view message);

    Gate& m_gate;
    ParameterView& m_view;
    ScreenLink& m_link;
    DeviceCopy& m_copy;
    FirmwareVersion m_firmware;
    bool m_changed = false;
    std::string m_refused;  ///< the values and the replies to them, UTF-8
};

/// What acknowledges a setting.
inline constexpr std::string_view acknowledged = "OK";

/// Whether a device other than the addressed one has answered on the link's bus with this ID.
bool isTakenOn(const ScreenLink& link, const std::string& deviceId);

}  // namespace zlt
