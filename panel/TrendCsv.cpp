#include "panel/TrendCsv.h"

#include <array>
#include <charconv>

#include "platform/Text.h"

namespace zlt {
namespace {

constexpr std::string_view headings =
    "time_s,position,encoder,following_error,current_mA,motion,minus_limit,home,plus_limit,driver,"
    "move_mode,output,program,line,device\r\n";
constexpr std::string_view lineEnd = "\r\n";
/// A line is rarely longer.
constexpr std::size_t usualLine = 96;

void write(std::string& text, std::int64_t number) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

/// With four digits after the point.
void writeSeconds(std::string& text, double seconds) {
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), seconds,
                                   std::chars_format::fixed, 4)
                         .ptr;
    text.append(digits.data(), end);
}

/// A text that somebody typed, so that no comma in it begins another field.
std::string field(const std::string& latin1) {
    std::string quoted = "\"";
    for (const char c : utf8FromLatin1(latin1))
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return latin1.find_first_not_of("0123456789") == std::string::npos ? latin1 : quoted + '"';
}

void writeFlags(std::string& text, bool known, std::initializer_list<bool> flags) {
    for (const bool flag : flags) {
        if (known)
            text += flag ? '1' : '0';
        text += ',';
    }
}

void writeLine(std::string& text, const TrendRecord& record, const TrendSample& sample) {
    writeSeconds(text, record.seconds(sample.time));
    for (const TrendSeries series : {TrendSeries::position, TrendSeries::encoder,
                                     TrendSeries::followingError, TrendSeries::current}) {
        text += ',';
        if (const auto value = sample.value(series))
            write(text, *value);
    }
    text += ',';
    const bool hasStatus = sample.knows(TrendSample::statusKnown);
    if (hasStatus)
        text += trendWord(sample.status.motion());
    text += ',';
    writeFlags(
        text, hasStatus,
        {sample.status.negativeLimit(), sample.status.home(), sample.status.positiveLimit()});
    writeFlags(text, sample.knows(TrendSample::driverKnown), {sample.driver});
    const bool hasProgram = sample.knows(TrendSample::programKnown);
    if (hasProgram)
        text += sample.incremental ? "INC" : "ABS";
    text += ',';
    writeFlags(text, hasProgram, {sample.output});
    if (sample.knows(TrendSample::stateKnown))
        text += trendWord(sample.program);
    text += ',';
    if (hasProgram)
        write(text, sample.line);
    text += ',';
    text += field(record.deviceOf(sample));
    text += lineEnd;
}

}  // namespace

std::string_view trendWord(MotionState motion) {
    switch (motion) {
        case MotionState::moving:
            return "moving";
        case MotionState::accelerating:
            return "accelerating";
        case MotionState::decelerating:
            return "decelerating";
        case MotionState::negativeLimitError:
            return "minus limit error";
        case MotionState::positiveLimitError:
            return "plus limit error";
        case MotionState::idle:
            break;
    }
    return "idle";
}

std::string_view trendWord(ProgramState state) {
    switch (state) {
        case ProgramState::running:
            return "running";
        case ProgramState::paused:
            return "paused";
        case ProgramState::errored:
            return "errored";
        case ProgramState::idle:
            break;
    }
    return "idle";
}

std::string trendCsv(const TrendRecord& record) {
    std::string text(headings);
    text.reserve(headings.size() + record.size() * usualLine);
    for (std::size_t index = 0; index < record.size(); ++index) {
        const TrendSample& sample = record.at(index);
        if (sample.afterGap && index > 0)
            text += lineEnd;
        writeLine(text, record, sample);
    }
    return text;
}

}  // namespace zlt
