#include "parameters/ParameterFile.h"

#include <algorithm>

#include "platform/Files.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

/// Some editors put it in front of a text.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

const FileChoice saveChoice{.title = "Save ZLT-R-NX Parameters As",
                            .filter = "Parameter Files (*.par)|*.par",
                            .initialName = ""};
const FileChoice openChoice{.title = "Open ZLT-R-NX Parameter File",
                            .filter = "ZLT-R-NX Parameter Files (*.par)|*.par",
                            .initialName = "*.par"};

/// How a line of the file is written.
enum class LineKind { word, text, flag };

LineKind kindOf(FieldRange line) {
    if (line.count > 1)
        return LineKind::word;
    switch (parameterRow(line.first).encoding) {
        case Encoding::bits:
        case Encoding::nonZero:
        case Encoding::one:
            return LineKind::flag;
        case Encoding::text:
        case Encoding::number:
        case Encoding::deviceName:
        case Encoding::baudCode:
            break;
    }
    return LineKind::text;
}

const char* expectation(LineKind kind) {
    switch (kind) {
        case LineKind::word:
            return "a whole number";
        case LineKind::flag:
            return "0 or 1";
        case LineKind::text:
            break;
    }
    return "plain text";
}

[[noreturn]] void refuse(std::size_t place, const std::string& found) {
    const FieldRange line = fileLayout()[place];
    throw MalformedParameterFile("Line " + std::to_string(place + 1) + " (" +
                                 namesOf({line.first}) + ") should be " +
                                 expectation(kindOf(line)) + ", but " + found + ".");
}

/// A flag is a whole number, 0 or 1: no fraction is rounded to one.
std::optional<std::string> readFlag(const std::string& text) {
    const auto number = text.find('.') == std::string::npos ? parseInteger(text) : std::nullopt;
    if (number && (*number == 0 || *number == 1))
        return std::to_string(*number);
    return std::nullopt;
}

std::vector<FieldText> readLine(std::size_t place, const std::string& text) {
    const FieldRange line = fileLayout()[place];
    switch (kindOf(line)) {
        case LineKind::text:
            if (const auto reason = whyUnsendable(text))
                refuse(place, "it " + *reason + ": " + inQuotes(utf8FromLatin1(text)));
            return {{line.first, text}};
        case LineKind::flag:
            if (const auto flag = readFlag(text))
                return {{line.first, *flag}};
            break;
        case LineKind::word:
            if (const auto number = parseInteger(text))
                return fieldsOfWord(*number, line);
            break;
    }
    refuse(place, "holds " + inQuotes(utf8FromLatin1(text)));
}

/// Empty texts at the end, whose empty lines editors like to take off.
bool mayBeMissing(std::size_t place) {
    const ParameterField field = fileLayout()[place].first;
    return field == ParameterField::lca || field == ParameterField::hca;
}

}  // namespace

std::string parameterFileText(const ParameterValues& values) {
    std::string text;
    for (const FieldRange line : fileLayout()) {
        text += kindOf(line) == LineKind::word ? std::to_string(wordOf(values, line))
                                               : values[line.first];
        text += "\r\n";
    }
    return text;
}

std::vector<FieldText> readParameterFile(std::string_view bytes) {
    if (bytes.starts_with(byteOrderMark))
        bytes.remove_prefix(byteOrderMark.size());
    std::vector<std::string> lines = splitLines(bytes);
    std::vector<FieldText> all;
    for (std::size_t place = 0; place < fileLayout().size(); ++place) {
        if (place >= lines.size() && mayBeMissing(place))
            lines.emplace_back();
        if (place >= lines.size())
            refuse(place, "the file ends before it");
        for (FieldText& field : readLine(place, lines[place]))
            all.push_back(std::move(field));
    }
    return all;
}

void ParameterFiles::save(const std::vector<ParameterField>& unread) {
    const ParameterValues values = m_view.values();
    std::vector<ParameterField> saved = unread;
    std::erase_if(saved, [](ParameterField field) { return parameterRow(field).fileLine == 0; });
    if (!confirmUnread(m_services.gate, "Save", saved,
                       "Save what the screen shows there all the same?"))
        return;
    const auto name = chooseSaveName(m_services.gate, saveChoice, "No Parameter File Name!");
    if (!name)
        return;
    const std::string text = parameterFileText(values);
    if (const auto failure = m_services.files.writeWhole(*name, text))
        m_services.gate.message(notSaved("The parameters", *name, *failure));
    else
        m_services.gate.message("Save Parameters to file done!");
}

void ParameterFiles::open() {
    const auto name = chooseOpenName(m_services.gate, openChoice);
    if (!name)
        return;
    const std::string file = "File " + utf8FromPath(*name);
    const FileContent content = m_services.files.read(*name);
    if (content.kind != FileContent::Kind::whole) {
        m_services.gate.message(content.kind == FileContent::Kind::absent
                                    ? file + " does not exist!"
                                    : notRead(*name, content));
        return;
    }
    try {
        ParameterValues opened;
        for (const FieldText& field : readParameterFile(content.bytes)) {
            m_view.showField(field.field, field.text);
            opened[field.field] = field.text;
        }
        m_view.showOpened(opened);
    } catch (const MalformedParameterFile& fault) {
        m_services.gate.message(file + " is not a parameter file.  " + fault.what());
    }
}

}  // namespace zlt
