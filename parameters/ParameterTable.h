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

/// One value of the set, with a control of its own; in the order in which the screen is read.
enum class ParameterField {
    deviceId,
    baudRate,
    nameInReplies,
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
    outputsAtBoot,
    lca,
    hca,
};
inline constexpr std::size_t parameterFieldCount = 17;

/// All of them, to go through.
constexpr std::array<ParameterField, parameterFieldCount> allParameterFields() {
    std::array<ParameterField, parameterFieldCount> fields{};
    for (std::size_t place = 0; place < fields.size(); ++place)
        fields[place] = static_cast<ParameterField>(place);
    return fields;
}
inline constexpr auto parameterFields = allParameterFields();

/// How a value stands in a reply and in a command.
enum class Encoding {
    text,        ///< as it stands
    number,      ///< the same, but a reply that is no number is no value
    deviceName,  ///< two digits after the name's prefix
    bits,        ///< a bit of a decimal word, which the fields of one command share from bit 0 up
    nonZero,     ///< set unless the reply is 0
    one,         ///< set when the reply is 1
    baudCode,    ///< 1 to 5 for the five baud rates
};

/// Everything about one value: what it is called, how it travels, from which firmware on it takes
/// part, and where it stands in a parameter file.
struct ParameterRow {
    ParameterField field;
    std::string_view name;     ///< for messages
    std::string_view command;  ///< reads it; with "=" and a value after it, writes it
    Encoding encoding;
    FirmwareVersion readFrom;  ///< below, the field is not read and its control disabled
    FirmwareVersion writtenFrom;
    int fileLine;                ///< from 1; 0 for a value that no file holds
    std::string_view word = {};  ///< the name of the word whose bit it is, if that has one
};

const ParameterRow& parameterRow(ParameterField field);

/// What a field is called: "run current", "polarity Dir".
std::string parameterName(ParameterField field);

/// Fields that follow one another; most are alone.
struct FieldRange {
    ParameterField first{};
    std::size_t count = 0;

    constexpr ParameterField operator[](std::size_t place) const {
        return static_cast<ParameterField>(static_cast<std::size_t>(first) + place);
    }
};

/// All fields' texts: as typed, or "0" and "1" for a mark or a pair of options.
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

/// One parameter of the controller: a command, and the fields that it reads and writes.
struct Parameter {
    std::string_view command;
    Encoding encoding{};
    FieldRange fields;
};

/// The parameter that a field is, or is a bit of.
const Parameter& parameterOf(ParameterField field);

/// Where a transfer looks whether the link still stands, and ends when it does not.
enum class LinkCheck { none, beforeShowing, afterwards };

/// One exchange of a transfer, and what is looked at with it.
struct TransferStep {
    Parameter parameter;
    LinkCheck check = LinkCheck::none;
};

/// The order in which the set is read. It is not the one in which it is written.
std::span<const TransferStep> uploadOrder();
std::span<const TransferStep> downOrder();

/// The fields of each line of a parameter file, the first line first.
std::span<const FieldRange> fileLayout();

}  // namespace zlt
