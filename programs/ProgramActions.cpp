#include "programs/ProgramActions.h"

#include <chrono>

#include "link/Exchange.h"
#include "platform/Files.h"
#include "platform/NumberConversion.h"
#include "platform/Product.h"
#include "programs/ProgramText.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

/// The line and the adapter come to rest around the hand-over to the downloader.
constexpr auto handOverWait = 100ms;

/// The baud rate that a "DB" reply stands for; empty for one that stands for none.
std::string baudTextOf(std::string_view reply) {
    const auto code = parseInteger(reply);
    return std::string(code ? baudRateOfCode(*code).value_or("") : "");
}

}  // namespace

void ProgramActions::workOn(ProgramView& view) {
    m_view = &view;
    m_tools.workOn(view);
}

bool ProgramActions::compile() {
    if (m_view->programEmpty()) {
        m_services.gate.message("Nothing to compile!");
        return false;
    }
    const PollPause pause(m_link);  // the panel stands still while the tool runs
    const std::string text = m_view->program();
    m_view->showErrors({});
    m_tools.write(toolfiles::program, WriteTextAsLines(text).value_or(""));
    writeCompilerSetup("COMPILE", toolfiles::program);
    m_tools.RunToolAndWait(compiler, toolfiles::compiled);
    if (m_tools.CheckToolResult(toolfiles::compiled)) {
        m_downloaded.compiled(text, m_tools.readResult(toolfiles::compiled));
        m_view->showCompiledLines("Lines: " + withSignBlank(m_tools.CountCompiledLines()));
        return true;
    }
    m_view->showErrors(compileErrorLines(m_tools.readResult(toolfiles::compiled)));
    m_view->SelectEditorLine(m_tools.ReadCompileErrorLine());
    return false;
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
        m_view->showListing(textOfLines(listing.bytes));
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

bool ProgramActions::sendToController(const char* operation, Sent sent) {
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
            const std::string listing = m_tools.read(toolfiles::compiled).bytes;
            m_downloaded.forget();
            m_tools.RunToolAndWait(downloader, toolfiles::downloaded);
            done = m_tools.CheckToolResult(toolfiles::downloaded);
            if (done && sent == Sent::listing)
                m_downloaded.downloaded(listing);
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
    m_view->setProgram(textOfLines(m_tools.readResult(toolfiles::decompiled)));
    belongsToNoFile();  // that one holds what stood here before
    return m_tools.CheckToolResult(toolfiles::decompiled);
}

bool ProgramActions::showsDownloaded() const {
    return m_downloaded.text() && m_view->shows(*m_downloaded.text());
}

void ProgramActions::showProgress(std::optional<std::int32_t> counter,
                                  std::optional<ProgramState> state) {
    m_state = state.value_or(m_state);
    const bool underWay = m_state == ProgramState::running || m_state == ProgramState::paused;
    const bool known = underWay && counter && showsDownloaded();
    m_view->showRunningLine(known ? m_downloaded.lineOf(*counter) : std::nullopt);
}

void ProgramActions::forgetController() {
    m_downloaded.forget();
    m_state = ProgramState::idle;
    hideProgress();
}

}  // namespace zlt
