#include "parameters/ParameterFiles.h"

#include <filesystem>

#include "parameters/ParameterFile.h"
#include "platform/FileNames.h"

namespace zlt {
namespace {

/// A parameter file is twelve short lines; what is behind this is none of ours.
constexpr std::size_t fileLimit = 64 * 1024;

const FileChoice saveChoice{.title = "Save ZLT-R-NX Parameters As",
                            .filter = "Parameter Files (*.par)|*.par",
                            .initialName = ""};
const FileChoice openChoice{.title = "Open ZLT-R-NX Parameter File",
                            .filter = "ZLT-R-NX Parameter Files (*.par)|*.par",
                            .initialName = "*.par"};

}  // namespace

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
