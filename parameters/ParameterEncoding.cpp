#include "parameters/ParameterEncoding.h"

#include <algorithm>

#include "link/Exchange.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

const char* flag(bool set) {
    return set ? "1" : "0";
}

/// By number: "09600" is 9600 too.
std::optional<std::size_t> codeOfBaudRate(std::string_view text) {
    const auto wanted = parseInteger(text);
    for (std::size_t place = 0; wanted && place < baudRates.size(); ++place)
        if (wanted == parseInteger(baudRates[place]))
            return place + 1;
    return std::nullopt;
}

ReplyFields both(const std::vector<FieldText>& fields) {
    return {fields, fields};
}

ReplyFields fieldsOfText(ParameterField field, std::string_view reply) {
    return whyUnsendable(reply) ? ReplyFields{} : both({{field, std::string(reply)}});
}

ReplyFields fieldsOfBaudCode(std::int32_t code) {
    constexpr auto field = ParameterField::baudRate;
    if (const auto rate = baudRateOfCode(code))
        return both({{field, std::string(*rate)}});
    return {{}, {{field, "code " + std::to_string(code)}}};
}

ReplyFields fieldsOfNumber(const Parameter& parameter, std::int32_t number) {
    const ParameterField field = parameter.fields.first;
    switch (parameter.encoding) {
        case Encoding::nonZero:
            return both({{field, flag(number != 0)}});
        case Encoding::one:
            return both({{field, flag(number == 1)}});
        case Encoding::baudCode:
            return fieldsOfBaudCode(number);
        default:
            return both(fieldsOfWord(number, parameter.fields));
    }
}

}  // namespace

std::int32_t wordOf(const ParameterValues& values, FieldRange fields) {
    std::int32_t word = 0;
    for (std::size_t bit = 0; bit < fields.count; ++bit)
        if (values[fields[bit]] == "1")
            word |= 1 << bit;
    return word;
}

std::vector<FieldText> fieldsOfWord(std::int32_t word, FieldRange fields) {
    std::vector<FieldText> texts;
    for (std::size_t bit = 0; bit < fields.count; ++bit)
        texts.push_back({fields[bit], flag(static_cast<std::uint32_t>(word) >> bit & 1U)});
    return texts;
}

std::optional<std::string> whyUnsendable(std::string_view text) {
    const auto control = [](char c) { return c == '\t' || isControlCharacter(c); };
    if (std::ranges::any_of(text, control))
        return "holds a control character, which no command can carry";
    if (text.size() > longestParameterText)
        return "is longer than " + std::to_string(longestParameterText) + " characters";
    return std::nullopt;
}

ReplyFields fieldsOfReply(const Parameter& parameter, std::string_view reply) {
    const ParameterField field = parameter.fields.first;
    const auto number = parseInteger(reply);
    switch (parameter.encoding) {
        case Encoding::text:
            return fieldsOfText(field, reply);
        case Encoding::number: {
            ReplyFields fields = fieldsOfText(field, reply);
            if (!number)
                fields.words.clear();
            return fields;
        }
        case Encoding::deviceName:
            if (const auto id = deviceIdOfName(reply))
                return both({{field, std::string(*id)}});
            return {};
        default:
            return number ? fieldsOfNumber(parameter, *number) : ReplyFields{};
    }
}

std::string asTaken(ParameterField field, const std::string& text) {
    const auto code = field == ParameterField::baudRate ? codeOfBaudRate(text) : std::nullopt;
    return code ? std::string(baudRates[*code - 1]) : text;
}

bool isSameValue(ParameterField field, std::string_view one, std::string_view other) {
    if (one == other)
        return true;
    const auto code = codeOfBaudRate(one);
    return field == ParameterField::baudRate && code && code == codeOfBaudRate(other);
}

std::optional<std::string> writeCommand(const Parameter& parameter, const ParameterValues& values) {
    const std::string name = std::string(parameter.command) + "=";
    const std::string& text = values[parameter.fields.first];
    switch (parameter.encoding) {
        case Encoding::text:
        case Encoding::number:
            return name + text;
        case Encoding::deviceName:
            return name + std::string(deviceNamePrefix) + text;
        case Encoding::baudCode:
            if (const auto code = codeOfBaudRate(text))
                return name + std::to_string(*code);
            return std::nullopt;
        default:
            return name + std::to_string(wordOf(values, parameter.fields));
    }
}

}  // namespace zlt
