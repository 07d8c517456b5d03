#include "link/DeviceNotes.h"

#include "link/Exchange.h"
#include "platform/NumberConversion.h"

namespace zlt {

std::string pendingText(const DeviceNote& note) {
    std::string text;
    if (note.pendingId)
        text = "ID " + *note.pendingId;
    if (note.pendingBaudRate)
        text += (text.empty() ? "" : ", ") + *note.pendingBaudRate;
    return text;
}

DeviceNote& DeviceNotes::of(const Connection& device) {
    return m_notes[{device.port, device.deviceId, device.baudRate}];
}

Connection DeviceNotes::withPending(const Connection& preferred) {
    if (!of(preferred).isPending())
        for (const auto& [address, note] : m_notes)
            if (note.isPending())
                return {address.port, address.baudRate, address.deviceId};
    return preferred;
}

/// Whether the controller of a note is the one that has come to another address.
bool DeviceNotes::hasMoved(const Address& from, const DeviceNote& note, const Address& to) {
    if (from.port != to.port || from == to)
        return false;
    if (note.pendingId)
        return note.pendingId == to.deviceId;
    return from.deviceId == to.deviceId && note.pendingBaudRate &&
           parseInteger(*note.pendingBaudRate) == parseInteger(to.baudRate);
}

void DeviceNotes::noteBaudRate(DeviceNote& note, std::string_view reply) {
    const auto code = parseInteger(reply);
    const auto rate = code ? baudRateOfCode(*code) : std::nullopt;
    if (rate && note.pendingBaudRate == *rate)
        note.pendingBaudRate.reset();
}

void DeviceNotes::noteReply(const Connection& device, std::string_view command,
                            std::string_view reply) {
    m_answered.insert({device.port, device.deviceId});
    if (command == "DB")
        noteBaudRate(of(device), reply);
    const auto id = command == "DN" ? deviceIdOfName(reply) : std::nullopt;
    if (!id)
        return;
    for (auto& [address, note] : m_notes)
        if (*id == device.deviceId &&
            hasMoved(address, note, {device.port, device.deviceId, device.baudRate})) {
            if (address.deviceId != *id)
                m_answered.erase({address.port, address.deviceId});
            note = {};  // what else it had accepted is in use by now, or lost
        }
    DeviceNote& own = of(device);
    if (own.pendingId == *id)
        own.pendingId.reset();  // reported where it was reached before, so not powered up
}

}  // namespace zlt
