#include "parameters/ParameterFiles.h"

#include "parameters/ParameterFile.h"
#include "platform/FileNames.h"

namespace zlt {
namespace {

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
    if (const auto failure = m_services.files.writeWhole(*name, text))
        m_services.gate.message(notSaved("The parameters", *name, *failure));
    else
        m_services.gate.message("Save Parameters to file done!");
}

void ParameterFiles::open() {
    const auto name = chooseOpenName(m_services.gate, openChoice);
    if (!name)
        return;
    const std::string file = "File " + utf8FromPath(*name);
    const FileContent content = m_services.files.read(*name);
    if (content.kind != FileContent::Kind::whole) {
        m_services.gate.message(content.kind == FileContent::Kind::absent
                                    ? file + " does not exist!"
                                    : notRead(*name, content));
        return;
    }
    try {
        for (const FieldText& field : readParameterFile(content.bytes))
            m_view.showField(field.field, field.text);
    } catch (const MalformedParameterFile& fault) {
        m_services.gate.message(file + " is not a parameter file.  " + fault.what());
    }
}

}  // namespace zlt
