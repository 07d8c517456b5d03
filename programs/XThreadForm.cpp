#include "programs/XThreadForm.h"

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
constexpr auto breathingSpace = 500ms;

}  // namespace

XThreadForm::XThreadForm(const Services& services, const LinkHandOver& handOver, QWidget* parent)
    : Screen(services, parent),
      m_ui(std::make_unique<Ui::XThreadForm>()),
      m_link(services, flavours::secondThread, this, this) {
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
    handlers.onClick(*m_ui->StopProg, [this](bool) {
        sendToThread(RunCommand::stop);
        stopMotion();
    });
    handlers.onClick(*m_ui->PauseProg, [this](bool) {
        sendToThread(RunCommand::pause);
        stopMotion();
    });
    handlers.onClick(*m_ui->ContProg, [this](bool) { sendToThread(RunCommand::resume); });
    handlers.onClick(*m_ui->Command1, [this](bool) { Command1_Click(); });
    handlers.connect(&m_timer1, &QTimer::timeout, this, &XThreadForm::Timer1_Timer);
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
    m_link.SendReceive(runCommandText(command, m_ui->ProgSel1->isChecked() ? "1" : "0"));
}

void XThreadForm::stopMotion() {
    m_stoppedAxis = true;
    m_link.SendReceive("ABORT");
}

void XThreadForm::Timer1_Timer() {
    if (m_link.lossReported()) {  // met and told at a button; what stands there is dimmed
        m_timer1.stop();
        return;
    }
    // No flag guards this screen's exchanges; set here, it tells how the pass went.
    m_link.setCommOK(true);
    m_ui->ProgIndex0->showReply(m_link.SendReceive("SPC0"));
    m_ui->ProgIndex1->showReply(m_link.SendReceive("SPC1"));
    showState("SASTAT0", *m_ui->ProgStatus0);
    showState("SASTAT1", *m_ui->ProgStatus1);
    showLive(m_link.CommOK());
    if (m_link.lossReported())
        m_timer1.stop();
    else
        m_timer1.setInterval(m_link.CommOK() ? passInterval : breathingSpace);
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
        showProgramState(state, *text);
}

void XThreadForm::Command1_Click() {
    m_timer1.stop();
    m_link.closePort();
    done(Accepted);
}

}  // namespace zlt
