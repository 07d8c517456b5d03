#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zlt {

/// A serial port as the operator counts them: 1 to 15. 0 stands for none.
struct PortNumber {
    int value = 0;
    auto operator<=>(const PortNumber&) const = default;
};

/// The highest port number the panel offers.
inline constexpr int portCount = 15;

/// The text of the port box for a port: "COM3".
std::string portText(PortNumber number);

/// The port that a port text stands for. "COM10" to "COM15", exactly, are read by their last
/// two characters; any other text by its last one only, so a typed "COM16" is port 6. A text
/// that does not end in a digit is port 0.
PortNumber portNumberFromText(std::string_view text);

/// The firmware's number: 315 for "V315". Features are gated by comparing it.
struct FirmwareVersion {
    int number = 0;
    auto operator<=>(const FirmwareVersion&) const = default;
};

/// From here on the controller answers "MM", "DO", "SPC" and "SASTAT".
inline constexpr FirmwareVersion firmwareWithProgramState{317};
/// From here on it has the HL and L homing.
inline constexpr FirmwareVersion firmwareWithHLHoming{322};
/// From here on it has a second program thread.
inline constexpr FirmwareVersion firmwareWithSecondThread{322};

/// The number in a version text, its second to fourth character. Throws ConversionError
/// naming `command`, whose reply the text is, when they are no number.
FirmwareVersion firmwareVersion(std::string_view command, std::string_view versionText);

/// The baud rates a controller knows, as texts, in the order of its "DB" codes 1 to 5.
inline constexpr std::array<std::string_view, 5> baudRates{"9600", "19200", "38400", "57600",
                                                           "115200"};

/// The baud rate that a "DB" code stands for; nothing for a code that stands for none.
std::optional<std::string_view> baudRateOfCode(std::int32_t code);

/// What a controller is reached with. The texts are the operator's own, unchecked (Latin-1).
struct Connection {
    PortNumber port;
    std::string baudRate;
    std::string deviceId;
};

}  // namespace zlt
