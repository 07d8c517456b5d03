#include "programs/ProgramActions.h"

#include <filesystem>

#include "platform/FileNames.h"
#include "platform/Product.h"
#include "programs/ProgramText.h"

namespace zlt {
namespace {

const FileChoice openChoice{"Open ZLT-R-NX Program", "ZLT-R-NX Program Files (*.prg)|*.prg",
                            "*.prg"};
const FileChoice saveChoice{"Save ZLT-R-NX Program As", "ZLT-R-NX Program Files (*.prg)|*.prg", ""};

bool isFile(const std::filesystem::path& name) {
    std::error_code unknown;
    return std::filesystem::exists(name, unknown) && !std::filesystem::is_directory(name, unknown);
}

}  // namespace

bool saveAsLines(const Services& services, const FileChoice& choice,
                 const std::function<std::string()>& text) {
    const auto name = chooseSaveName(services.gate, choice, "No Program Name!");
    if (!name)
        return false;
    // An empty text leaves an empty file and says nothing.
    const auto lines = WriteTextAsLines(text());
    const auto failure = services.files.writeWhole(*name, lines.value_or(""));
    // Only what cannot even be created ends in silence.
    if (failure && failure->kind == WriteFailure::Kind::failed)
        services.gate.message(notSaved("The text", *name, *failure));
    if (failure)
        return false;
    if (lines)
        services.gate.message("Save Done!");
    return true;
}

void ProgramActions::NewProg_Click() {
    m_view.setProgram("");
    m_view.markSaved();
}

void ProgramActions::OpenProg_Click() {
    const PollPause pause(m_link);
    const auto name = chooseOpenName(m_services.gate, openChoice);
    if (!name)
        return;
    if (!isFile(*name)) {
        m_services.gate.message("File " + utf8FromPath(*name) + " does not exist!");
        return;
    }
    const FileContent file = m_services.files.read(*name);
    if (file.refused())
        m_services.gate.message(notRead(*name, file));
    if (file.kind == FileContent::Kind::whole || file.kind == FileContent::Kind::brokenOff)
        m_view.setProgram(textOfLines(file.bytes));
    if (file.kind == FileContent::Kind::whole)
        m_view.markSaved();
}

void ProgramActions::SaveProg_Click() {
    const PollPause pause(m_link);
    if (saveAsLines(m_services, saveChoice, [this] { return m_view.program(); }))
        m_view.markSaved();
}

void ProgramActions::CompileAll_Click() {
    if (m_view.programEmpty()) {
        m_services.gate.message("Nothing to compile!");
        return;
    }
    const PollPause pause(m_link);  // the panel stands still while the tool runs
    m_tools.write(toolfiles::program, WriteTextAsLines(m_view.program()).value_or(""));
    m_tools.writeSetup(toolfiles::compilerSetup, {{"MOD", std::string(controllerModel)},
                                                  {"OPE", "COMPILE"},
                                                  {"FIL", nameOf(toolfiles::program)}});
    m_tools.RunToolAndWait(compiler, toolfiles::compiled);
    if (m_tools.CheckToolResult(toolfiles::compiled))
        m_view.showCompiledLines("Lines: " + withSignBlank(m_tools.CountCompiledLines()));
    else
        m_view.SelectEditorLine(m_tools.ReadCompileErrorLine());
}

void ProgramActions::ViewCompiled_Click() {
    const PollPause pause(m_link);
    const FileContent listing = m_tools.read(toolfiles::compiled);
    if (listing.refused())
        m_services.gate.message(notRead(nameOf(toolfiles::compiled), listing));
    if (listing.kind == FileContent::Kind::whole)
        m_view.showListing(textOfLines(listing.bytes));
}

}  // namespace zlt
