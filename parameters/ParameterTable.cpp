#include "parameters/ParameterTable.h"

namespace zlt {
namespace {

using F = ParameterField;

constexpr FirmwareVersion any{};

// In the order of ParameterField. Old firmware is written to all the same, but for "DL".
constexpr std::array<FieldRow, parameterFieldCount> fieldTable{{
    {"DeviceIDCombo", nullptr, any, any},
    {"RunCurrentSelect", nullptr, any, any},
    {"IdleCurrentSelect", nullptr, any, any},
    {"Microstep", nullptr, any, any},
    {"DirPol1", "DirPol2", any, any},
    {"LimPol1", "LimPol2", any, any},
    {"HomePol1", "HomePol2", any, any},
    {"dopol1", "dopol2", any, any},
    {"sapol1", "sapol2", any, any},
    {"DisableLimit", nullptr, firmwareWithLimitDisable, firmwareWithLimitDisable},
    {"Autostart", nullptr, any, any},
    {"Autostart1", nullptr, firmwareWithHomeParameters, any},
    {"LCA", nullptr, firmwareWithHomeParameters, any},
    {"HCA", nullptr, firmwareWithHomeParameters, any},
    {"DOBOOT", nullptr, firmwareWithHomeParameters, any},
    {"baudCombo", nullptr, any, any},
    {"RT", nullptr, any, any},
}};

constexpr std::array parameterTable{
    ParameterRow{"DN", Encoding::deviceName, {F::deviceId}},
    ParameterRow{"CURR", Encoding::text, {F::runCurrent}},
    ParameterRow{"CURI", Encoding::text, {F::idleCurrent}},
    ParameterRow{"MS", Encoding::text, {F::microstep}},
    ParameterRow{"POL", Encoding::bits, {F::directionPolarity, 5}},
    ParameterRow{"DL", Encoding::nonZero, {F::limitDisable}},
    ParameterRow{"SLOAD", Encoding::bits, {F::autoRun0, 2}},
    ParameterRow{"LCA", Encoding::text, {F::lca}},
    ParameterRow{"HCA", Encoding::text, {F::hca}},
    ParameterRow{"DOBOOT", Encoding::text, {F::outputsAtBoot}},
    ParameterRow{"DB", Encoding::baudCode, {F::baudRate}},
    ParameterRow{"RT", Encoding::one, {F::nameInReplies}},
};

/// A command that is not in the table does not compile.
consteval TransferStep step(std::string_view command, LinkCheck check = LinkCheck::none) {
    for (const ParameterRow& row : parameterTable)
        if (row.command == command)
            return {&row, check};
    throw "no such parameter";
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

}  // namespace

const FieldRow& fieldRow(ParameterField field) {
    return fieldTable[static_cast<std::size_t>(field)];
}

std::span<const TransferStep> uploadOrder() {
    return uploadTable;
}
std::span<const TransferStep> downOrder() {
    return downTable;
}

}  // namespace zlt
