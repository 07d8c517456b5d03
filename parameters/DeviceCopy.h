#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "link/DeviceNotes.h"
#include "parameters/ParameterEncoding.h"
#include "parameters/ParameterTable.h"

namespace zlt {

/// A value that the controller did not take, and what it said instead of "OK". Latin-1.
struct Refusal {
    std::string text;
    std::string reply;
};

/// What the controller last said of each field, and what is known of its flash. Kept by the replies
/// alone: a failed exchange says nothing. Of a field that the firmware lacks nothing is known.
class DeviceCopy {
 public:
    /// `note` outlives the copy, and the screen.
    DeviceCopy(DeviceNote& note, FirmwareVersion firmware) : m_note(&note), m_firmware(firmware) {}

    /// Whether the controller's firmware has such a value.
    [[nodiscard]] bool has(ParameterField field) const {
        return m_firmware >= parameterRow(field).readFrom;
    }

    /// The controller's word for a field; nothing when it is not known.
    [[nodiscard]] const std::optional<std::string>& word(ParameterField field) const {
        return m_fields[index(field)].word;
    }
    [[nodiscard]] const std::optional<Refusal>& refusal(ParameterField field) const {
        return m_fields[index(field)].refusal;
    }
    /// What it has accepted for its next power-up; device ID and baud rate only.
    [[nodiscard]] const std::optional<std::string>& pending(ParameterField field) const;
    /// What the next power-up brings; nothing when that is not known.
    [[nodiscard]] std::optional<std::string> afterPowerUp(ParameterField field) const;
    /// Whether the field was written and not stored.
    [[nodiscard]] bool isUnstored(ParameterField field) const;
    [[nodiscard]] bool isUnstored() const { return !m_note->unstored.empty(); }

    /// A reply to a query told what a field is.
    void noteRead(const FieldText& word);
    /// A query did not tell it.
    void noteUnread(FieldRange fields);
    /// The controller said "OK" to these values. True when they are new to it.
    bool noteAccepted(const Parameter& parameter, const ParameterValues& values);
    void noteRefused(const Parameter& parameter, const ParameterValues& values,
                     std::string_view reply);
    /// Whether these values were taken is not known: nothing was said in time.
    void noteLost(const Parameter& parameter);
    void noteStored() { m_note->unstored.clear(); }
    /// A store was sent and not acknowledged: what flash holds of these values is not known.
    void noteStoreLost();

 private:
    struct Known {
        std::optional<std::string> word;
        std::optional<Refusal> refusal;
    };
    static std::size_t index(ParameterField field) { return static_cast<std::size_t>(field); }
    Known& known(ParameterField field) { return m_fields[index(field)]; }
    [[nodiscard]] std::optional<std::string>* pendingPlace(ParameterField field) const;
    void keepFlashWord(ParameterField field);
    void dropIfInFlash(ParameterField field);

    DeviceNote* m_note;
    FirmwareVersion m_firmware;
    std::array<Known, parameterFieldCount> m_fields;
};

}  // namespace zlt
