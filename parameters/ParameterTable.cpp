#include "parameters/ParameterTable.h"

#include <algorithm>

namespace zlt {
namespace {

using E = Encoding;
using F = ParameterField;

constexpr FirmwareVersion any{};
constexpr FirmwareVersion limits = firmwareWithLimitDisable;
constexpr FirmwareVersion homes = firmwareWithHomeParameters;

// Field, name, command, encoding, read from, written from, line of the file. Old firmware is
// written to all the same, but for "DL".
constexpr std::array<ParameterRow, parameterFieldCount> table{{
    {F::deviceId, "device ID", "DN", E::deviceName, any, any, 2},
    {F::baudRate, "baud rate", "DB", E::baudCode, any, any, 6},
    {F::nameInReplies, "name in replies", "RT", E::one, any, any, 7},
    {F::runCurrent, "run current", "CURR", E::number, any, any, 4},
    {F::idleCurrent, "idle current", "CURI", E::number, any, any, 5},
    {F::microstep, "microstep", "MS", E::number, any, any, 3},
    {F::directionPolarity, "Dir", "POL", E::bits, any, any, 1, "polarity"},
    {F::limitPolarity, "Limits", "POL", E::bits, any, any, 1, "polarity"},
    {F::homePolarity, "Home", "POL", E::bits, any, any, 1, "polarity"},
    {F::outputPolarity, "DO", "POL", E::bits, any, any, 1, "polarity"},
    {F::programErrorPolarity, "SA Err", "POL", E::bits, any, any, 1, "polarity"},
    {F::limitDisable, "limit disable", "DL", E::nonZero, limits, limits, 8},
    {F::autoRun0, "auto run 0", "SLOAD", E::bits, any, any, 9},
    {F::autoRun1, "auto run 1", "SLOAD", E::bits, homes, any, 10},
    {F::outputsAtBoot, "DO Boot", "DOBOOT", E::text, homes, any, 0},
    {F::lca, "LCA", "LCA", E::text, homes, any, 11},
    {F::hca, "HCA", "HCA", E::text, homes, any, 12},
}};

constexpr std::size_t fileLines = 12;

static_assert(std::ranges::equal(table, parameterFields, {}, &ParameterRow::field),
              "a row stands at the place of its field");

/// A command that is not in the table does not compile; nor one whose fields do not stand together,
/// or share it without each being one of its bits.
consteval Parameter parameter(std::string_view command) {
    Parameter found{command, {}, {}};
    for (const ParameterRow& row : table) {
        if (row.command != command)
            continue;
        if (found.fields.count == 0)
            found.fields.first = row.field;
        else if (found.fields[found.fields.count] != row.field || row.encoding != E::bits)
            throw "not the bits of one word";
        found.encoding = row.encoding;
        ++found.fields.count;
    }
    if (found.fields.count == 0)
        throw "no such parameter";
    return found;
}

consteval TransferStep step(std::string_view command, LinkCheck check = LinkCheck::none) {
    return {parameter(command), check};
}

constexpr std::array uploadTable{
    step("DN", LinkCheck::afterwards),
    step("CURR", LinkCheck::afterwards),
    step("CURI", LinkCheck::afterwards),
    step("MS", LinkCheck::afterwards),
    step("POL", LinkCheck::afterwards),
    step("DL"),
    step("LCA"),
    step("HCA"),
    step("DOBOOT"),
    step("SLOAD"),
    step("DB", LinkCheck::beforeShowing),
    step("RT"),
};

constexpr std::array downTable{
    step("CURR", LinkCheck::afterwards),
    step("CURI", LinkCheck::afterwards),
    step("MS", LinkCheck::afterwards),
    step("POL", LinkCheck::afterwards),
    step("DN", LinkCheck::afterwards),
    step("DL"),
    step("SLOAD"),
    step("HCA"),
    step("LCA"),
    step("DOBOOT"),
    step("DB", LinkCheck::afterwards),
    step("RT"),
};

/// Whether an order reaches every field of the table, and none of them twice.
consteval bool reachesAll(std::span<const TransferStep> order) {
    std::array<int, parameterFieldCount> reached{};
    for (const TransferStep& each : order)
        for (std::size_t place = 0; place < each.parameter.fields.count; ++place)
            ++reached[static_cast<std::size_t>(each.parameter.fields[place])];
    return std::ranges::all_of(reached, [](int times) { return times == 1; });
}
static_assert(reachesAll(uploadTable) && reachesAll(downTable));

constexpr auto layout = [] {
    std::array<FieldRange, fileLines> lines;
    for (std::size_t place = 0; place < fileLines; ++place)
        for (const ParameterRow& row : table) {
            if (row.fileLine != static_cast<int>(place) + 1)
                continue;
            if (lines[place].count == 0)
                lines[place].first = row.field;
            ++lines[place].count;
        }
    return lines;
}();

/// Whether each line has fields, several only where they are a whole word's bits, and no field is
/// on a line past the last.
consteval bool layoutHolds() {
    std::size_t placed = 0;
    for (const FieldRange& line : layout) {
        if (line.count == 0)
            return false;
        const ParameterRow& first = table[static_cast<std::size_t>(line.first)];
        if (line.count > 1 && parameter(first.command).fields.count != line.count)
            return false;
        placed += line.count;
    }
    for (const ParameterRow& row : table)
        placed += row.fileLine == 0;
    return placed == table.size();
}
static_assert(layoutHolds());

}  // namespace

const ParameterRow& parameterRow(ParameterField field) {
    return table[static_cast<std::size_t>(field)];
}

std::string parameterName(ParameterField field) {
    const ParameterRow& row = parameterRow(field);
    return std::string(row.word) + (row.word.empty() ? "" : " ") + std::string(row.name);
}

const Parameter& parameterOf(ParameterField field) {
    const auto step =
        std::ranges::find(uploadTable, parameterRow(field).command,
                          [](const TransferStep& each) { return each.parameter.command; });
    return step->parameter;  // reachesAll() has seen to it that there is one
}

std::span<const TransferStep> uploadOrder() {
    return uploadTable;
}
std::span<const TransferStep> downOrder() {
    return downTable;
}
std::span<const FieldRange> fileLayout() {
    return layout;
}

}  // namespace zlt
