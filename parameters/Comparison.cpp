#include "parameters/Comparison.h"

#include <algorithm>

#include "link/Exchange.h"
#include "platform/Text.h"

namespace zlt {
namespace {

Standing standingOf(ParameterField field, const std::string& shown, const DeviceCopy& copy) {
    const auto is = [&](const std::string& latin1) {
        return isSameValue(field, shown, utf8FromLatin1(latin1));
    };
    if (const auto& refusal = copy.refusal(field); refusal && is(refusal->text))
        return Standing::refused;
    if (!copy.word(field))
        return Standing::unread;
    if (is(*copy.word(field)) || (copy.pending(field) && is(*copy.pending(field))))
        return Standing::same;
    return Standing::differs;
}

}  // namespace

Comparison::Comparison(const ParameterValues& shown, const DeviceCopy& copy,
                       FirmwareVersion firmware) {
    for (const ParameterField field : parameterFields)
        m_standings[static_cast<std::size_t>(field)] = firmware < parameterRow(field).readFrom
                                                           ? Standing::lacking
                                                           : standingOf(field, shown[field], copy);
}

int Comparison::count(Standing standing) const {
    return static_cast<int>(std::ranges::count(m_standings, standing));
}

std::string pendingNote(ParameterField field, const DeviceCopy& copy) {
    const auto& pending = copy.pending(field);
    return pending ? utf8FromLatin1(*pending) + " after the next power-up" : std::string();
}

std::string deviceIdNote(const std::string& typed) {
    const std::string name = std::string(deviceNamePrefix) + typed;
    const bool twoDigits = deviceIdOfName(name) == typed;
    if (twoDigits && typed != "00")
        return {};
    return std::string(twoDigits ? "All controllers at once" : "Not two digits") + ": Down sends " +
           inQuotes("DN=" + name);
}

std::vector<ParameterField> unreadFields(const DeviceCopy& copy, FirmwareVersion firmware) {
    std::vector<ParameterField> fields;
    for (const ParameterField field : parameterFields)
        if (firmware >= parameterRow(field).readFrom && !copy.word(field))
            fields.push_back(field);
    return fields;
}

std::string namesOf(const std::vector<ParameterField>& fields) {
    std::string names;
    std::string_view last;
    for (const ParameterField field : fields) {
        const ParameterRow& row = parameterRow(field);
        const std::string_view name = row.word.empty() ? row.name : row.word;
        if (name == last)
            continue;
        names += (names.empty() ? "" : ", ") + std::string(name);
        last = name;
    }
    return names;
}

bool confirmUnread(Gate& gate, std::string_view title, const std::vector<ParameterField>& unread,
                   std::string_view question) {
    return unread.empty() || gate.ask(title, "Not read from the controller: " + namesOf(unread) +
                                                 ".  " + std::string(question));
}

}  // namespace zlt
