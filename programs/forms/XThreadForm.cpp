#include "programs/forms/XThreadForm.h"

#include <chrono>

#include "platform/NumberConversion.h"
#include "programs/ProgramState.h"
#include "ui_XThreadForm.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

constexpr auto passInterval = 1ms;
/// After a pass with a failure, whose messages keep the screen busy, the operator gets this
/// long to press a button, Close above all.
constexpr auto breathingSpace = 1000ms;

}  // namespace

XThreadForm::XThreadForm(const Services& world, const LinkHandOver& handOver, QWidget* parent)
    : LinkedScreen(world, parent),
      m_ui(std::make_unique<Ui::XThreadForm>()),
      m_link(services(), flavours::secondThread, this) {
    m_ui->setupUi(this);
    m_link.takeOver(handOver);
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.setInterval(passInterval);
    teachManners();
    connectHandlers();
}

XThreadForm::~XThreadForm() = default;

void XThreadForm::connectHandlers() {
    handlers.onClick(*m_ui->RunProg, [this](bool) { sendToThread(RunCommand::run); });
    handlers.onClick(*m_ui->StopProg, [this](bool) { sendToThreadAndStop(RunCommand::stop); });
    handlers.onClick(*m_ui->PauseProg, [this](bool) { sendToThreadAndStop(RunCommand::pause); });
    handlers.onClick(*m_ui->ContProg, [this](bool) { sendToThread(RunCommand::resume); });
    handlers.onClick(*m_ui->Command1, [this](bool) { Command1_Click(); });
    handlers.onTick(m_timer1, [this] { return Timer1_Timer(); });
    connectAbort(*m_ui->stopBox, m_link.connection.deviceId, [this] { m_link.abort(); });
}

void XThreadForm::Form_Load() {
    handlers.runWithinCaller([this] {
        const BusyCursor busy;
        m_link.openHandedOverPort();  // what fails here is told by the first exchange
        m_ui->ProgSel0->setChecked(true);
        m_timer1.start();
    });
}

void XThreadForm::sendToThread(RunCommand command) {
    m_link.SendReceive(threadCommand(command));
}

void XThreadForm::sendToThreadAndStop(RunCommand command) {
    noteAxisStopped();
    m_link.sendAll({threadCommand(command), "ABORT"});
}

std::string XThreadForm::threadCommand(RunCommand command) const {
    return runCommandText(command, m_ui->ProgSel1->isChecked() ? "1" : "0");
}

std::chrono::milliseconds XThreadForm::Timer1_Timer() {
    if (m_link.lossReported()) {  // met and told at a button; what stands there is dimmed
        m_timer1.stop();
        return passInterval;
    }
    if (!m_link.CommOK())
        m_link.dropInput();  // late answers to the pass that failed
    // No flag guards this screen's exchanges; set here, it tells how the pass went.
    m_link.setCommOK(true);
    m_ui->ProgIndex0->showReply(m_link.SendReceive("SPC0"));
    m_ui->ProgIndex1->showReply(m_link.SendReceive("SPC1"));
    showState("SASTAT0", *m_ui->ProgStatus0);
    showState("SASTAT1", *m_ui->ProgStatus1);
    showLive(m_link.CommOK());
    if (m_link.lossReported())
        m_timer1.stop();
    return m_link.CommOK() ? passInterval : breathingSpace;
}

void XThreadForm::commChanged(bool connected) {
    // Dimmed before the message is up; live again once a whole pass has been answered.
    if (!connected)
        showLive(false);
}

void XThreadForm::showLive(bool live) {
    for (ReadOut* value : findChildren<ReadOut*>())
        value->setLive(live);
}

void XThreadForm::showState(const char* query, ReadOut& state) {
    const auto code = parseInteger(m_link.SendReceive(query));
    if (const auto text = code ? programStateText(*code) : std::nullopt)
        state.showState(*text);
}

void XThreadForm::Command1_Click() {
    m_timer1.stop();
    m_link.closePort();
    done(Accepted);
}

}  // namespace zlt
