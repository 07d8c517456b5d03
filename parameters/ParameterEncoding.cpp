#include "parameters/ParameterEncoding.h"

#include "link/Framing.h"
#include "platform/NumberConversion.h"

namespace zlt {
namespace {

const char* flag(bool set) {
    return set ? "1" : "0";
}

FieldText baudRateField(std::int32_t code) {
    if (const auto rate = baudRateOfCode(code))
        return {ParameterField::baudRate, std::string(*rate)};
    return {ParameterField::baudRate, "code " + std::to_string(code), false};
}

/// By number: "09600" is 9600 too.
std::optional<std::string> codeOfBaudRate(std::string_view text) {
    const auto wanted = parseInteger(text);
    for (std::size_t place = 0; wanted && place < baudRates.size(); ++place)
        if (wanted == parseInteger(baudRates[place]))
            return std::to_string(place + 1);
    return std::nullopt;
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

std::vector<FieldText> fieldsOfReply(const Parameter& parameter, std::string_view reply) {
    const ParameterField field = parameter.fields.first;
    switch (parameter.encoding) {
        case Encoding::text:
            return {{field, std::string(reply)}};
        case Encoding::deviceName:
            return {{field, std::string(behindDeviceNamePrefix(reply, 2))}};
        default:
            break;
    }
    const std::int32_t number = replyToInteger(parameter.command, reply);
    switch (parameter.encoding) {
        case Encoding::nonZero:
            return {{field, flag(number != 0)}};
        case Encoding::one:
            return {{field, flag(number == 1)}};
        case Encoding::baudCode:
            return {baudRateField(number)};
        default:
            return fieldsOfWord(number, parameter.fields);
    }
}

std::optional<std::string> writeCommand(const Parameter& parameter, const ParameterValues& values) {
    const std::string name = std::string(parameter.command) + "=";
    const std::string& text = values[parameter.fields.first];
    switch (parameter.encoding) {
        case Encoding::text:
            return name + text;
        case Encoding::deviceName:
            return name + std::string(deviceNamePrefix) + text;
        case Encoding::baudCode:
            if (const auto code = codeOfBaudRate(text))
                return name + *code;
            return std::nullopt;
        default:
            return name + std::to_string(wordOf(values, parameter.fields));
    }
}

}  // namespace zlt
