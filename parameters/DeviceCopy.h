#pragma once

#include <array>
#include <optional>
#include <string>

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

}  // namespace zlt
