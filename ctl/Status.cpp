#include <algorithm>
#include <array>
#include <ctime>

#include "ctl/Context.h"
#include "ctl/StatusValues.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt::ctl {
namespace {

using namespace std::chrono_literals;

std::vector<StatusValue> readStatus(Context& context) {
    const AxisReading reading = readAxis(context.session.link);
    // Beside a machine a wrong value is worse than none.
    (void)replyToInteger("CUR", reading.current);
    (void)replyToInteger("PX", reading.position);
    (void)replyToInteger("EX", reading.encoder);
    return valuesOf(reading);
}

std::string shownValue(const Output& output, const StatusValue& value) {
    return output.coloured(value.text.empty() ? "?" : printable(value.text), value.meaning);
}

JsonObject asJson(const std::vector<StatusValue>& values) {
    JsonObject object;
    for (const StatusValue& value : values)
        object.addRaw(value.name, value.text.empty() ? "null" : jsonValue(value.text));
    return object;
}

/// The values of these names, in their order.
std::vector<StatusValue> chosen(const std::vector<StatusValue>& values,
                                const std::vector<std::string>& names) {
    std::vector<StatusValue> some;
    for (const std::string& name : names) {
        const auto found = std::ranges::find(values, name, &StatusValue::name);
        if (found == values.end())
            throw Failure(ExitCode::refused,
                          "This controller's firmware does not tell " + inQuotes(name) + ".");
        some.push_back(*found);
    }
    return some;
}

void checkNames(const std::vector<std::string>& names) {
    const auto known = statusNames();
    for (const std::string& name : names)
        if (std::ranges::find(known, name) == known.end()) {
            std::string all;
            for (const std::string_view each : known)
                all += " " + std::string(each);
            throw Failure(ExitCode::usage,
                          "There is no value " + inQuotes(name) + ".  There are:" + all);
        }
}

/// "2026-01-31T23:59:59.123Z"
std::string timeNow() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto ms =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()) % 1000;
    std::array<char, 32> day{};
    std::strftime(day.data(), day.size(), "%Y-%m-%dT%H:%M:%S", std::gmtime(&seconds));
    std::array<char, 40> whole{};
    std::snprintf(whole.data(), whole.size(), "%s.%03dZ", day.data(), static_cast<int>(ms.count()));
    return whole.data();
}

std::string inOneLine(const Output& output, const std::vector<StatusValue>& values) {
    std::string line;
    for (const StatusValue& value : values)
        line +=
            (line.empty() ? "" : "  ") + std::string(value.name) + " " + shownValue(output, value);
    return line;
}

}  // namespace

void showStatus(Context& context) {
    Output& output = context.output;
    checkNames(context.operands);
    const std::vector<StatusValue> all = readStatus(context);
    const bool some = !context.operands.empty();
    const std::vector<StatusValue> values = some ? chosen(all, context.operands) : all;
    if (output.style.json) {
        output.line(asJson(values).text());
        return;
    }
    for (const StatusValue& value : values)
        output.line((some ? "" : std::string(value.name) + " ") + shownValue(output, value));
}

void watchStatus(Context& context) {
    Output& output = context.output;
    const auto every = context.arguments.option("every");
    const std::chrono::milliseconds interval =
        every ? std::chrono::milliseconds(wholeNumber("--every", *every, 0)) : 500ms;
    const bool csv = context.arguments.has("csv");
    context.whenInterrupted.clear();  // it is the way to end this
    for (bool first = true;; first = false) {
        const auto begun = std::chrono::steady_clock::now();
        std::vector<StatusValue> values = readStatus(context);
        if (csv || output.style.json)
            values.insert(values.begin(), {"time", timeNow()});
        if (csv && first)
            output.line(csvHead(values));
        output.line(csv                 ? csvLine(values)
                    : output.style.json ? asJson(values).text()
                                        : inOneLine(output, values));
        const auto taken = std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now() - begun);
        context.console.pause(std::max(interval - taken, 0ms));
        context.heed.check();
    }
}

}  // namespace zlt::ctl
