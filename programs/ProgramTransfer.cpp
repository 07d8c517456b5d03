#include "programs/ProgramTransfer.h"

#include <chrono>

#include "link/Framing.h"
#include "platform/NumberConversion.h"
#include "platform/Product.h"
#include "programs/ProgramText.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

/// The line and the adapter come to rest around the hand-over to the downloader.
constexpr auto handOverWait = 100ms;

/// The baud rate behind a "DB" reply; empty for one that stands for none.
std::string baudTextOf(std::string_view reply) {
    const auto code = parseInteger(reply);
    return std::string(code ? baudRateOfCode(*code).value_or("") : "");
}

}  // namespace

ProgramTransfer::Target ProgramTransfer::askTarget() {
    const std::string name = m_link.SendReceive("DN");
    const std::string code = m_link.SendReceive("DB");
    return {std::string(behindDeviceNamePrefix(name, 2)), baudTextOf(code)};
}

void ProgramTransfer::checkPortNumber() const {
    if (!m_link.numberStillMeant())
        throw ToolError(portText(m_link.connection.port) +
                        " does not stand for the connected device any more, as adapters came or "
                        "went.  The tool would go to another one and was not started.");
}

void ProgramTransfer::writeSetup(const Target& target, const char* operation, const char* lines) {
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

void ProgramTransfer::sendToController(const char* operation) {
    if (!m_link.CommOK()) {
        m_services.gate.message("Communication not open!");
        return;
    }
    m_link.SendReceive("SR0=0");
    m_link.SendReceive("SR1=0");
    const Target target = askTarget();
    if (!m_link.CommOK())
        return;
    m_link.lendPort(
        [&] {
            checkPortNumber();
            writeSetup(target, operation, " 510");
            m_tools.RunToolAndWait(downloader, toolfiles::downloaded);
            m_tools.CheckToolResult(toolfiles::downloaded);
            reinitialise = 1;
        },
        handOverWait);
}

void ProgramTransfer::UploadSAP_Click() {
    if (!m_link.CommOK())
        return;
    const Target target = askTarget();
    m_link.lendPort(
        [&] {
            checkPortNumber();
            writeSetup(target, "UPLOAD", "510");
            // An image of an earlier upload must not be taken for this controller's program.
            m_tools.runUnchecked(downloader, toolfiles::uploaded);
            readProgramBack();
        },
        handOverWait);
}

void ProgramTransfer::readProgramBack() {
    m_tools.writeSetup(toolfiles::compilerSetup, {{"MOD", std::string(controllerModel)},
                                                  {"OPE", "DECOMPILE"},
                                                  {"FIL", nameOf(toolfiles::uploaded)}});
    m_tools.RunToolAndWait(compiler, toolfiles::decompiled);
    m_view.setProgram(textOfLines(m_tools.readResult(toolfiles::decompiled)));
    m_tools.CheckToolResult(toolfiles::decompiled);
}

}  // namespace zlt
