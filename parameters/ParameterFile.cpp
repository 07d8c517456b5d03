#include "parameters/ParameterFile.h"

#include <algorithm>
#include <filesystem>

#include "platform/FileNames.h"
#include "platform/Latin1.h"
#include "platform/Lines.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

/// A parameter file is twelve short lines; what comes after this is none of ours.
constexpr std::size_t fileLimit = 64 * 1024;

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

bool isPlain(std::string_view text) {
    return std::none_of(text.begin(), text.end(), isControlCharacter);
}

[[noreturn]] void refuse(std::size_t place, const std::string& found) {
    const FieldRange line = fileLayout()[place];
    const ParameterRow& row = parameterRow(line.first);
    throw MalformedParameterFile("Line " + std::to_string(place + 1) + " (" +
                                 std::string(row.word.empty() ? row.name : row.word) +
                                 ") should be " + expectation(kindOf(line)) + ", but " + found +
                                 ".");
}

std::vector<FieldText> readLine(std::size_t place, const std::string& text) {
    const FieldRange line = fileLayout()[place];
    const auto number = parseInteger(text);
    switch (kindOf(line)) {
        case LineKind::text:
            if (isPlain(text))
                return {{line.first, text}};
            break;
        case LineKind::flag:
            if (text == "0" || text == "1")
                return {{line.first, text}};
            break;
        case LineKind::word:
            if (number)
                return fieldsOfWord(*number, line);
            break;
    }
    refuse(place, "holds " + inQuotes(utf8FromLatin1(text)));
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
    const std::vector<std::string> lines = splitLines(bytes);
    std::vector<FieldText> all;
    for (std::size_t place = 0; place < fileLayout().size(); ++place) {
        if (place >= lines.size())
            refuse(place, "the file ends before it");
        for (FieldText& field : readLine(place, lines[place]))
            all.push_back(std::move(field));
    }
    return all;
}

void ParameterFiles::save() {
    const auto name = chooseSaveName(m_services.gate, saveChoice, "No Parameter File Name!");
    if (!name)
        return;
    const std::string text = parameterFileText(m_view.values());
    if (const auto reason = m_services.files.writeWhole(*name, text))
        m_services.gate.message("The parameters could not be saved in " + utf8FromPath(*name) +
                                ": " + *reason);
    else
        m_services.gate.message("Save Parameters to file done!");
}

void ParameterFiles::open() {
    const auto name = chooseOpenName(m_services.gate, openChoice);
    if (!name)
        return;
    const std::string file = "File " + utf8FromPath(*name);
    std::error_code unreachable;
    if (!std::filesystem::exists(*name, unreachable)) {
        m_services.gate.message(file + " does not exist!");
        return;
    }
    const auto bytes = m_services.files.read(*name, fileLimit);
    if (!bytes) {
        m_services.gate.message(file + " could not be read.");
        return;
    }
    try {
        for (const FieldText& field : readParameterFile(*bytes))
            m_view.showField(field.field, field.text);
    } catch (const MalformedParameterFile& fault) {
        m_services.gate.message(file + " is not a parameter file.  " + fault.what());
    }
}

}  // namespace zlt
