#pragma once

#include <array>
#include <optional>
#include <string>

#include "parameters/ParameterEncoding.h"
#include "parameters/ParameterTable.h"

namespace zlt {

/// What the controller last said of each field, by a reply to a query or its "OK" to a
/// setting. What a failed exchange left on the screen is none of its words.
class DeviceCopy {
 public:
    void note(const FieldText& word) { m_words[index(word.field)] = word.text; }

    /// Nothing when the controller has said nothing yet.
    const std::optional<std::string>& word(ParameterField field) const {
        return m_words[index(field)];
    }

    /// Set when something was written that no store to flash has followed yet. What was
    /// written before this screen opened is not known here.
    bool unstored = false;

 private:
    static std::size_t index(ParameterField field) { return static_cast<std::size_t>(field); }

    std::array<std::optional<std::string>, parameterFieldCount> m_words;
};

/// How what the screen shows of a field stands to the controller.
enum class Standing {
    same,
    differs,  ///< from what the controller last said
    unread,   ///< the controller has said nothing yet
};

/// How each field stands. `shown` is what the screen shows, UTF-8: a text that no wire can carry
/// differs like any other.
class Comparison {
 public:
    Comparison(const ParameterValues& shown, const DeviceCopy& copy, FirmwareVersion firmware);

    Standing operator[](ParameterField field) const {
        return m_standings[static_cast<std::size_t>(field)];
    }
    int count(Standing standing) const;

 private:
    std::array<Standing, parameterFieldCount> m_standings{};
};

}  // namespace zlt
