#include "ctl/StatusValues.h"

#include "ctl/Output.h"

namespace zlt::ctl {
namespace {

std::string digit(bool on) {
    return on ? "1" : "0";
}

std::string digit(std::optional<bool> on) {
    return on ? digit(*on) : "";
}

void addProgram(std::vector<StatusValue>& values, const AxisReading::Program& program) {
    const auto mode = [](bool incremental) { return incremental ? "INC" : "ABS"; };
    values.push_back({"mode", program.incremental ? mode(*program.incremental) : ""});
    values.push_back({"output", digit(program.output)});
    values.push_back({"line", program.line ? std::to_string(*program.line) : ""});
    const ShownState state = program.state ? shownState(*program.state) : ShownState{""};
    values.push_back({"program", std::string(state.words), state.meaning});
}

std::string csvField(const std::string& text) {
    if (text.find_first_of(",\"") == std::string::npos)
        return text;
    std::string field = "\"";
    for (const char c : text)
        field += c == '"' ? std::string("\"\"") : std::string(1, c);
    return field + '"';
}

}  // namespace

std::vector<StatusValue> valuesOf(const AxisReading& reading) {
    const auto& status = reading.status;
    const ShownState motion = status ? shownState(status->motion()) : ShownState{""};
    const auto lamp = [](bool lit) { return lit ? Meaning::atFault : Meaning::atRest; };
    const bool negative = status && status->negativeLimit();
    const bool positive = status && status->positiveLimit();
    std::vector<StatusValue> values{
        {"position", reading.position},
        {"encoder", reading.encoder},
        {"current", reading.current},
        {"motion", std::string(motion.words), motion.meaning},
        {"negative-limit", status ? digit(negative) : "", lamp(negative)},
        {"positive-limit", status ? digit(positive) : "", lamp(positive)},
        {"home", status ? digit(status->home()) : ""},
        {"driver", digit(reading.driverEnabled)}};
    if (reading.program)
        addProgram(values, *reading.program);
    return values;
}

std::vector<std::string_view> statusNames() {
    AxisReading everything;
    everything.program.emplace();
    std::vector<std::string_view> names;
    for (const StatusValue& value : valuesOf(everything))
        names.push_back(value.name);
    return names;
}

std::string csvLine(const std::vector<StatusValue>& values) {
    std::string line;
    for (const StatusValue& value : values)
        line += (line.empty() ? "" : ",") + csvField(printable(value.text));
    return line;
}

std::string csvHead(const std::vector<StatusValue>& values) {
    std::string line;
    for (const StatusValue& value : values)
        line += (line.empty() ? "" : ",") + std::string(value.name);
    return line;
}

}  // namespace zlt::ctl
