#include "parameters/ParameterFiles.h"

#include <filesystem>

#include "parameters/ParameterFile.h"

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

bool hasWildcard(const std::string& name) {
    return name.find('*') != std::string::npos;
}

std::filesystem::path pathOf(const std::string& utf8Name) {
    return std::u8string(utf8Name.begin(), utf8Name.end());
}

}  // namespace

void ParameterFiles::save() {
    const auto name = m_services.gate.chooseToSave(saveChoice);
    if (!name)
        return;
    if (name->empty()) {
        m_services.gate.message("No Parameter File Name!");
        return;
    }
    if (hasWildcard(*name))
        return;
    const std::string text = parameterFileText(m_view.values());
    if (const auto reason = m_services.files.writeWhole(pathOf(*name), text))
        m_services.gate.message("The parameters could not be saved in " + *name + ": " + *reason);
    else
        m_services.gate.message("Save Parameters to file done!");
}

void ParameterFiles::open() {
    const auto name = m_services.gate.chooseToOpen(openChoice);
    if (!name || name->empty() || hasWildcard(*name))
        return;
    std::error_code unreachable;
    if (!std::filesystem::exists(pathOf(*name), unreachable)) {
        m_services.gate.message("File " + *name + " does not exist!");
        return;
    }
    const auto bytes = m_services.files.read(pathOf(*name), fileLimit);
    if (!bytes) {
        m_services.gate.message("File " + *name + " could not be read.");
        return;
    }
    try {
        for (const FieldText& field : readParameterFile(*bytes))
            m_view.showField(field.field, field.text);
    } catch (const MalformedParameterFile& fault) {
        m_services.gate.message("File " + *name + " is not a parameter file.  " + fault.what());
    }
}

}  // namespace zlt
