#pragma once

#include <compare>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "link/Values.h"

namespace zlt {

/// What a controller has accepted, and will only show at its next power-up. Texts are Latin-1.
struct DeviceNote {
    std::optional<std::string> pendingId;  ///< its device ID from the next power-up on
    std::optional<std::string> pendingBaudRate;
    /// What was written and has not been stored to flash, by the value's name, each with what the
    /// next power-up brings back; nothing where that is not known.
    std::map<std::string, std::optional<std::string>> unstored;

    [[nodiscard]] bool isPending() const { return pendingId || pendingBaudRate; }
};

/// What is pending: "ID 05, 115200".
std::string pendingText(const DeviceNote& note);

/// What has been learnt of the controllers on each port since the program started.
class DeviceNotes {
 public:
    /// The note of the device that is reached so. The reference stays good.
    DeviceNote& of(const Connection& device);

    /// A device with something pending: `preferred` if it has any, or else another one; `preferred`
    /// too when none has.
    Connection withPending(const Connection& preferred);

    /// A device answered. What "DN" or "DB" reports is pending no longer. A controller that answers
    /// "DN" with the ID, or at the rate, that it was to have has been powered up since.
    void noteReply(const Connection& device, std::string_view command, std::string_view reply);

    /// Whether a device of this ID has answered on the port of `device`.
    [[nodiscard]] bool hasAnswered(const Connection& device, const std::string& deviceId) const {
        return m_answered.contains({device.port, deviceId});
    }

 private:
    struct Address {
        PortNumber port;
        std::string deviceId;
        std::string baudRate;
        auto operator<=>(const Address&) const = default;
    };
    static bool hasMoved(const Address& from, const DeviceNote& note, const Address& to);
    static void noteBaudRate(DeviceNote& note, std::string_view reply);

    std::map<Address, DeviceNote> m_notes;
    std::set<std::pair<PortNumber, std::string>> m_answered;
};

}  // namespace zlt
