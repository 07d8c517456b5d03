#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "parameters/DeviceCopy.h"
#include "platform/Gate.h"

namespace zlt {

/// How what the screen shows of a field stands to the controller.
enum class Standing {
    same,     ///< in use, or accepted for the next power-up
    differs,  ///< from what the controller last said
    unread,   ///< the controller's word for it is not known
    refused,  ///< the controller was sent it, and did not say "OK"
    lacking,  ///< the firmware has no such value
};

/// How each field of `shown` stands: what the screen shows, UTF-8, as a text that no wire can carry
/// differs like any other.
class Comparison {
 public:
    Comparison(const ParameterValues& shown, const DeviceCopy& copy);

    Standing operator[](ParameterField field) const {
        return m_standings[static_cast<std::size_t>(field)];
    }
    [[nodiscard]] int count(Standing standing) const;

 private:
    std::array<Standing, parameterFieldCount> m_standings{};
};

/// What is accepted and not in use yet: "42 after the next power-up". Empty when nothing is. UTF-8.
std::string pendingNote(ParameterField field, const DeviceCopy& copy);
/// What is odd about a typed device ID (UTF-8), with the command that Down makes of it. Empty for
/// two digits that address one controller.
std::string deviceIdNote(const std::string& typed);

/// The names of fields in one line, each word that they share told once: "run current, polarity".
std::string namesOf(const std::vector<ParameterField>& fields);
/// The fields that the firmware has and whose word is not known.
std::vector<ParameterField> unreadFields(const DeviceCopy& copy);
/// Asks before values that were never read go anywhere. True when nothing stands in the way.
bool confirmUnread(Gate& gate, std::string_view title, const std::vector<ParameterField>& unread,
                   std::string_view question);

/// One line of the table that holds screen, controller and file side by side. UTF-8; empty where
/// there is nothing to hold against the others.
struct CompareRow {
    std::string value;
    std::string onScreen;
    std::string inController;
    std::string afterPowerUp;
    std::string asOpened;
};

/// What differs, in reading order; of the bits of the polarity word, the word's number first.
/// `opened` are the values of the file that was opened last, Latin-1.
std::vector<CompareRow> compareTable(const ParameterValues& shown, const DeviceCopy& copy,
                                     const std::optional<ParameterValues>& opened);

}  // namespace zlt
