// The program group's buttons that concern files.
#include <filesystem>
#include <system_error>

#include "programs/ProgramActions.h"
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

std::optional<SavedFile> saveAsLines(const Services& services, const FileChoice& choice,
                                     const std::function<std::string()>& text) {
    const auto name = chooseSaveName(services.gate, choice, "No Program Name!");
    if (!name)
        return std::nullopt;
    // An empty text leaves an empty file and says nothing.
    const auto lines = WriteTextAsLines(text());
    SavedFile saved{*name, lines.value_or("")};
    const auto failure = services.files.writeWhole(saved.path, saved.bytes);
    // Only what cannot even be created ends in silence.
    if (failure && failure->kind == WriteFailure::Kind::failed)
        services.gate.message(notSaved("The text", *name, *failure));
    if (failure)
        return std::nullopt;
    if (lines)
        services.gate.message("Save Done!");
    return saved;
}

void ProgramActions::newProgram() {
    m_view->setProgram("");
    m_view->markSaved();
    belongsToNoFile();
}

void ProgramActions::openProgram() {
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
        m_view->setProgram(textOfLines(file.bytes));
    if (file.kind == FileContent::Kind::whole)
        belongsTo({*name, file.bytes});
    else if (file.kind == FileContent::Kind::brokenOff)
        belongsToNoFile();  // to save the half over the whole takes a dialog
}

void ProgramActions::saveProgram() {
    const PollPause pause(m_link);
    if (const auto saved =
            saveAsLines(m_services, saveChoice, [this] { return m_view->program(); }))
        belongsTo(*saved);
}

void ProgramActions::saveAgain() {
    if (!m_file.known()) {
        saveProgram();
        return;
    }
    const SavedFile file{m_file.path(), WriteTextAsLines(m_view->program()).value_or("")};
    const bool changed = m_file.look() == ProgramFile::OnDisk::changed;
    if (changed && !m_services.gate.ask("Save", "The file " + m_file.name() +
                                                    " was changed by another program.\r\n"
                                                    "Save over it?"))
        return;
    if (const auto failure = m_services.files.writeWhole(file.path, file.bytes))
        m_services.gate.message(notSaved("The text", file.path, *failure));
    else
        belongsTo(file);
}

void ProgramActions::checkFile() {
    const ProgramFile::OnDisk now = m_file.look();
    if (now == ProgramFile::OnDisk::asKnown)
        return;
    if (now == ProgramFile::OnDisk::gone) {
        m_view->markUnsaved();
        return;
    }
    m_file.takeNote();  // one question for each change
    if (!m_services.gate.ask("Program file changed",
                             "The file " + m_file.name() +
                                 " was changed by another program.\r\n"
                                 "Load it?  Undo brings the text here back.")) {
        m_view->markUnsaved();
        return;
    }
    m_view->setProgram(textOfLines(m_file.found()));
    m_view->markSaved();
}

void ProgramActions::belongsTo(const SavedFile& file) {
    m_file.belongsTo(file.path, file.bytes);
    m_view->markSaved();
    m_view->showFile();
}

void ProgramActions::belongsToNoFile() {
    m_file.forget();
    m_view->showFile();
}

}  // namespace zlt
