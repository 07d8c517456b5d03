#include "parameters/Comparison.h"

#include <algorithm>
#include <functional>

#include "link/Exchange.h"
#include "platform/Text.h"

namespace zlt {
namespace {

Standing standingOf(ParameterField field, const std::string& shown, const DeviceCopy& copy) {
    const auto is = [&](const std::string& latin1) {
        return isSameValue(field, shown, utf8FromLatin1(latin1));
    };
    if (!copy.has(field))
        return Standing::lacking;
    if (const auto& refusal = copy.refusal(field); refusal && is(refusal->text))
        return Standing::refused;
    if (!copy.word(field))
        return Standing::unread;
    if (is(*copy.word(field)) || (copy.pending(field) && is(*copy.pending(field))))
        return Standing::same;
    return Standing::differs;
}

/// One column: what it holds of a field, Latin-1; nothing where that is not known.
using Column = std::function<std::optional<std::string>(ParameterField)>;

struct Columns {
    Column onScreen, inController, afterPowerUp, asOpened;
};

constexpr const char* notKnown = "not known";

std::string capitalized(std::string name) {
    if (!name.empty() && name.front() >= 'a' && name.front() <= 'z')
        name.front() = static_cast<char>(name.front() - 'a' + 'A');
    return name;
}

/// A field's text as the table has it.
std::string cell(ParameterField field, const std::optional<std::string>& text) {
    switch (parameterRow(field).encoding) {
        case Encoding::bits:
        case Encoding::nonZero:
        case Encoding::one:
            return !text ? notKnown : *text == "1" ? "set" : "clear";
        default:
            return text.value_or(notKnown);
    }
}

/// The word of several bits as manuals quote it: "POL 21".
std::string wordCell(const Parameter& parameter, const Column& column) {
    ParameterValues values;
    for (std::size_t place = 0; place < parameter.fields.count; ++place) {
        const auto text = column(parameter.fields[place]);
        if (!text)
            return notKnown;
        values[parameter.fields[place]] = *text;
    }
    return std::string(parameter.command) + " " + std::to_string(wordOf(values, parameter.fields));
}

/// Applies `make` to each column; one that a file does not hold stays empty.
CompareRow rowOf(std::string value, const Columns& columns, bool inFile,
                 const std::function<std::string(const Column&)>& make) {
    return {capitalized(std::move(value)), make(columns.onScreen), make(columns.inController),
            make(columns.afterPowerUp), inFile ? make(columns.asOpened) : std::string()};
}

bool isInFile(ParameterField field, const std::optional<ParameterValues>& opened) {
    return opened && parameterRow(field).fileLine != 0;
}

}  // namespace

Comparison::Comparison(const ParameterValues& shown, const DeviceCopy& copy) {
    for (const ParameterField field : parameterFields)
        m_standings[static_cast<std::size_t>(field)] = standingOf(field, shown[field], copy);
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

std::vector<ParameterField> unreadFields(const DeviceCopy& copy) {
    std::vector<ParameterField> fields;
    for (const ParameterField field : parameterFields)
        if (copy.has(field) && !copy.word(field))
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

std::vector<CompareRow> compareTable(const ParameterValues& shown, const DeviceCopy& copy,
                                     const std::optional<ParameterValues>& opened) {
    const Comparison comparison(shown, copy);
    const auto utf8 = [](const std::optional<std::string>& text) {
        return text ? std::optional(utf8FromLatin1(*text)) : std::nullopt;
    };
    const Columns columns{
        .onScreen = [&](ParameterField field) { return std::optional(shown[field]); },
        .inController = [&](ParameterField field) { return utf8(copy.word(field)); },
        .afterPowerUp =
            [&](ParameterField field) {
                auto text = utf8(copy.afterPowerUp(field));
                if (text && copy.pending(field) && copy.isUnstored(field))
                    *text += ", once stored";
                return text;
            },
        .asOpened = [&](ParameterField field) { return utf8((*opened)[field]); }};
    const auto differs = [&](ParameterField field) {
        if (comparison[field] == Standing::lacking)
            return false;
        const std::string& text = shown[field];
        const auto after = columns.afterPowerUp(field);
        return comparison[field] != Standing::same || !after || !isSameValue(field, text, *after) ||
               !isSameValue(field, text, *columns.inController(field)) ||
               (isInFile(field, opened) && !isSameValue(field, text, *columns.asOpened(field)));
    };

    std::vector<CompareRow> rows;
    std::string_view wordTold;
    for (const ParameterField field : parameterFields) {
        if (!differs(field))
            continue;
        const bool inFile = isInFile(field, opened);
        const std::string_view word = parameterRow(field).word;
        if (word != wordTold && !word.empty())
            rows.push_back(rowOf(std::string(word), columns, inFile, [&](const Column& column) {
                return wordCell(parameterOf(field), column);
            }));
        wordTold = word;
        rows.push_back(rowOf(parameterName(field), columns, inFile,
                             [&](const Column& column) { return cell(field, column(field)); }));
        if (comparison[field] == Standing::refused)
            rows.back().onScreen += ", refused";
    }
    return rows;
}

}  // namespace zlt
