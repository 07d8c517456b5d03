#include "programs/ProgramActions.h"

#include <chrono>
#include <filesystem>

#include "link/Exchange.h"
#include "platform/Files.h"
#include "platform/NumberConversion.h"
#include "platform/Product.h"
#include "programs/ProgramText.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

const FileChoice openChoice{"Open ZLT-R-NX Program", "ZLT-R-NX Program Files (*.prg)|*.prg",
                            "*.prg"};
const FileChoice saveChoice{"Save ZLT-R-NX Program As", "ZLT-R-NX Program Files (*.prg)|*.prg", ""};

bool isFile(const std::filesystem::path& name) {
    std::error_code unknown;
    return std::filesystem::exists(name, unknown) && !std::filesystem::is_directory(name, unknown);
}

/// The line and the adapter come to rest around the hand-over to the downloader.
constexpr auto handOverWait = 100ms;

/// The baud rate that a "DB" reply stands for; empty for one that stands for none.
std::string baudTextOf(std::string_view reply) {
    const auto code = parseInteger(reply);
    return std::string(code ? baudRateOfCode(*code).value_or("") : "");
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

void ProgramActions::newProgram() {
    m_view.setProgram("");
    m_view.markSaved();
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
        m_view.setProgram(textOfLines(file.bytes));
    if (file.kind == FileContent::Kind::whole)
        m_view.markSaved();
}

void ProgramActions::saveProgram() {
    const PollPause pause(m_link);
    if (saveAsLines(m_services, saveChoice, [this] { return m_view.program(); }))
        m_view.markSaved();
}

bool ProgramActions::compile() {
    if (m_view.programEmpty()) {
        m_services.gate.message("Nothing to compile!");
        return false;
    }
    const PollPause pause(m_link);  // the panel stands still while the tool runs
    m_tools.write(toolfiles::program, WriteTextAsLines(m_view.program()).value_or(""));
    writeCompilerSetup("COMPILE", toolfiles::program);
    m_tools.RunToolAndWait(compiler, toolfiles::compiled);
    const bool done = m_tools.CheckToolResult(toolfiles::compiled);
    if (done)
        m_view.showCompiledLines("Lines: " + withSignBlank(m_tools.CountCompiledLines()));
    else
        m_view.SelectEditorLine(m_tools.ReadCompileErrorLine());
    return done;
}

void ProgramActions::writeCompilerSetup(const char* operation, std::string_view file) {
    m_tools.writeSetup(
        toolfiles::compilerSetup,
        {{"MOD", std::string(controllerModel)}, {"OPE", operation}, {"FIL", nameOf(file)}});
}

void ProgramActions::viewListing() {
    const PollPause pause(m_link);
    const FileContent listing = m_tools.read(toolfiles::compiled);
    if (listing.refused())
        m_services.gate.message(notRead(nameOf(toolfiles::compiled), listing));
    if (listing.kind == FileContent::Kind::whole)
        m_view.showListing(textOfLines(listing.bytes));
}

ProgramActions::Target ProgramActions::askTarget() {
    const std::string name = m_link.SendReceive("DN");
    const std::string code = m_link.SendReceive("DB");
    return {std::string(afterDeviceNamePrefix(name, 2)), baudTextOf(code)};
}

void ProgramActions::checkPortNumber() const {
    if (!m_link.numberStillMeant())
        throw ToolError(portText(m_link.connection.port) +
                        " does not stand for the connected device any more, as adapters came or "
                        "went.  The tool would go to another one and was not started.");
}

void ProgramActions::writeDownloaderSetup(const Target& target, const char* operation,
                                          const char* lines) {
    m_tools.writeSetup(toolfiles::downloaderSetup,
                       {{"LIN", lines},
                        {"COM", "SERIAL"},
                        {"POR", withSignBlank(m_link.connection.port.value)},
                        {"BAU", target.baudText},
                        {"DEV", target.deviceNumber},
                        {"OPE", operation},
                        {"FIL", nameOf(toolfiles::compiled)},
                        {"MOD", std::string(controllerModel)}});
}

bool ProgramActions::sendToController(const char* operation) {
    if (!m_link.CommOK()) {
        m_services.gate.message("Communication not open!");
        return false;
    }
    m_link.SendReceive("SR0=0");
    m_link.SendReceive("SR1=0");
    const Target target = askTarget();
    if (!m_link.CommOK())
        return false;
    bool done = false;
    m_link.lendPort(
        [&] {
            checkPortNumber();
            writeDownloaderSetup(target, operation, " 510");
            m_tools.RunToolAndWait(downloader, toolfiles::downloaded);
            done = m_tools.CheckToolResult(toolfiles::downloaded);
            reinitialise = 1;
        },
        handOverWait);
    return done;
}

bool ProgramActions::upload() {
    if (!m_link.CommOK())
        return false;
    const Target target = askTarget();
    bool done = false;
    m_link.lendPort(
        [&] {
            checkPortNumber();
            writeDownloaderSetup(target, "UPLOAD", "510");
            // An image of an earlier upload must not be taken for this controller's program.
            m_tools.runUnchecked(downloader, toolfiles::uploaded);
            done = readProgramBack();
        },
        handOverWait);
    return done;
}

bool ProgramActions::readProgramBack() {
    writeCompilerSetup("DECOMPILE", toolfiles::uploaded);
    m_tools.RunToolAndWait(compiler, toolfiles::decompiled);
    m_view.setProgram(textOfLines(m_tools.readResult(toolfiles::decompiled)));
    return m_tools.CheckToolResult(toolfiles::decompiled);
}

}  // namespace zlt
