#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "link/Values.h"

namespace zlt {

/// From here on the controller has "DL".
inline constexpr FirmwareVersion firmwareWithLimitDisable{317};
/// From here on it has "LCA", "HCA", "DOBOOT" and a second program to run at power-up.
inline constexpr FirmwareVersion firmwareWithHomeParameters{322};

/// One value of the set, with a control of its own.
enum class ParameterField {
    deviceId,
    runCurrent,
    idleCurrent,
    microstep,
    directionPolarity,
    limitPolarity,
    homePolarity,
    outputPolarity,
    programErrorPolarity,
    limitDisable,
    autoRun0,
    autoRun1,
    lca,
    hca,
    outputsAtBoot,
    baudRate,
    nameInReplies,
};
inline constexpr std::size_t parameterFieldCount = 17;

/// How a field stands on the screen, and from which firmware on it takes part.
struct FieldRow {
    const char* control;       ///< the control, or the pair's first button
    const char* setButton;     ///< the pair's second button, which stands for 1; else null
    FirmwareVersion readFrom;  ///< below, the field is not read and its control disabled
    FirmwareVersion writtenFrom;
};

const FieldRow& fieldRow(ParameterField field);

/// All fields' texts, Latin-1: as typed, or "0" and "1" for a mark or a pair of options.
class ParameterValues {
 public:
    std::string& operator[](ParameterField field) { return m_texts[index(field)]; }
    const std::string& operator[](ParameterField field) const { return m_texts[index(field)]; }

 private:
    static constexpr std::size_t index(ParameterField field) {
        return static_cast<std::size_t>(field);
    }
    std::array<std::string, parameterFieldCount> m_texts;
};

/// Fields that stand for the bits of one word, from bit 0 up; most are alone.
struct FieldRange {
    ParameterField first;
    std::size_t count = 1;

    ParameterField operator[](std::size_t place) const {
        return static_cast<ParameterField>(static_cast<std::size_t>(first) + place);
    }
};

/// A field and what it is to hold.
struct FieldText {
    ParameterField field;
    std::string text;
    bool offered = true;  ///< false for a word of the controller's that the screen cannot show
};

enum class Encoding {
    text,        ///< as it stands
    deviceName,  ///< two digits behind the name's prefix
    bits,        ///< a decimal word, one bit a field
    nonZero,     ///< set unless the reply is 0
    one,         ///< set when the reply is 1
    baudCode,    ///< 1 to 5 for the five baud rates
};

/// One parameter of the controller: read by its bare command, written with "=" behind it.
struct ParameterRow {
    std::string_view command;
    Encoding encoding;
    FieldRange fields;
};

/// Where a transfer looks whether the link still stands, and ends when it does not.
enum class LinkCheck { none, beforeShowing, afterwards };

/// One exchange of a transfer, and what is looked at with it.
struct TransferStep {
    const ParameterRow* parameter;
    LinkCheck check;
};

/// The order in which the set is read. It is not the one in which it is written.
std::span<const TransferStep> uploadOrder();
std::span<const TransferStep> downOrder();

}  // namespace zlt
