#include "parameters/ParameterFile.h"

#include <algorithm>

#include "parameters/ParameterEncoding.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

using F = ParameterField;

struct FileLine {
    enum class Kind { word, text, flag };

    Kind kind;
    FieldRange fields;
    const char* name;
};

constexpr std::array layout{
    FileLine{FileLine::Kind::word, {F::directionPolarity, 5}, "polarity"},
    FileLine{FileLine::Kind::text, {F::deviceId}, "device ID"},
    FileLine{FileLine::Kind::text, {F::microstep}, "microstep"},
    FileLine{FileLine::Kind::text, {F::runCurrent}, "run current"},
    FileLine{FileLine::Kind::text, {F::idleCurrent}, "idle current"},
    FileLine{FileLine::Kind::text, {F::baudRate}, "baud rate"},
    FileLine{FileLine::Kind::flag, {F::nameInReplies}, "name in replies"},
    FileLine{FileLine::Kind::flag, {F::limitDisable}, "limit disable"},
    FileLine{FileLine::Kind::flag, {F::autoRun0}, "auto run 0"},
    FileLine{FileLine::Kind::flag, {F::autoRun1}, "auto run 1"},
    FileLine{FileLine::Kind::text, {F::lca}, "LCA"},
    FileLine{FileLine::Kind::text, {F::hca}, "HCA"},
};

const char* expectation(FileLine::Kind kind) {
    switch (kind) {
        case FileLine::Kind::word:
            return "a whole number";
        case FileLine::Kind::flag:
            return "0 or 1";
        case FileLine::Kind::text:
            break;
    }
    return "plain text";
}

bool isPlain(std::string_view text) {
    return std::none_of(text.begin(), text.end(), isControlCharacter);
}

[[noreturn]] void refuse(std::size_t place, const std::string& found) {
    const FileLine& line = layout[place];
    throw MalformedParameterFile("Line " + std::to_string(place + 1) + " (" + line.name +
                                 ") should be " + expectation(line.kind) + ", but " + found + ".");
}

std::vector<FieldText> readLine(std::size_t place, const std::string& text) {
    const FileLine& line = layout[place];
    const auto number = parseInteger(text);
    switch (line.kind) {
        case FileLine::Kind::text:
            if (isPlain(text))
                return {{line.fields.first, text}};
            break;
        case FileLine::Kind::flag:
            if (text == "0" || text == "1")
                return {{line.fields.first, text}};
            break;
        case FileLine::Kind::word:
            if (number)
                return fieldsOfWord(*number, line.fields);
            break;
    }
    refuse(place, "holds " + inQuotes(utf8FromLatin1(text)));
}

}  // namespace

std::string parameterFileText(const ParameterValues& values) {
    std::string text;
    for (const FileLine& line : layout) {
        text += line.kind == FileLine::Kind::word ? std::to_string(wordOf(values, line.fields))
                                                  : values[line.fields.first];
        text += "\r\n";
    }
    return text;
}

std::vector<FieldText> readParameterFile(std::string_view bytes) {
    const std::vector<std::string> lines = splitLines(bytes);
    std::vector<FieldText> all;
    for (std::size_t place = 0; place < layout.size(); ++place) {
        if (place >= lines.size())
            refuse(place, "the file ends before it");
        for (FieldText& field : readLine(place, lines[place]))
            all.push_back(std::move(field));
    }
    return all;
}

}  // namespace zlt
