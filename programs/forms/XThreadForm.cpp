#include "programs/forms/XThreadForm.h"

#include "ui_XThreadForm.h"
#include "widgets/Fields.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

constexpr auto firstPass = 1ms;

}  // namespace

XThreadForm::XThreadForm(const Services& world, const LinkHandOver& handOver, QWidget* parent)
    : LinkedScreen(world, parent),
      m_ui(controlsOf<Ui::XThreadForm>(*this)),
      m_watch(services(), handOver, [this] { showLive(false); }) {
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.setInterval(firstPass);
    applyScreenRules();
    connectHandlers();
}

XThreadForm::~XThreadForm() = default;

void XThreadForm::connectHandlers() {
    handlers.onClick(*m_ui->RunProg, [this](bool) { sendToThread(RunCommand::run); });
    handlers.onClick(*m_ui->StopProg, [this](bool) { sendToThread(RunCommand::stop); });
    handlers.onClick(*m_ui->PauseProg, [this](bool) { sendToThread(RunCommand::pause); });
    handlers.onClick(*m_ui->ContProg, [this](bool) { sendToThread(RunCommand::resume); });
    handlers.onClick(*m_ui->Command1, [this](bool) { Command1_Click(); });
    handlers.onTick(m_timer1, [this] { return Timer1_Timer(); });
    connectAbort(*m_ui->stopBox, m_watch.link.connection.deviceId, [this] {
        m_watch.abort();
        armTimer();
    });
}

void XThreadForm::Form_Load() {
    handlers.runWithinCaller([this] {
        const BusyCursor busy;
        m_watch.link.openHandedOverPort();  // what fails here is told by the first exchange
        m_ui->ProgSel0->setChecked(true);
        m_timer1.start();
    });
}

void XThreadForm::sendToThread(RunCommand command) {
    if (ThreadWatch::stopsAxis(command))
        noteAxisStopped();
    m_watch.send(m_ui->ProgSel1->isChecked() ? 1 : 0, command);
    armTimer();
}

void XThreadForm::armTimer() {
    if (m_timer1.isActive())
        m_timer1.start(m_watch.untilNextPass());
}

std::chrono::milliseconds XThreadForm::Timer1_Timer() {
    if (const auto pass = m_watch.readPass())
        showPass(*pass);
    if (m_watch.ended())
        m_timer1.stop();
    return m_watch.untilNextPass();
}

void XThreadForm::showPass(const ThreadPass& pass) {
    const std::array counters{m_ui->ProgIndex0, m_ui->ProgIndex1};
    const std::array states{m_ui->ProgStatus0, m_ui->ProgStatus1};
    for (std::size_t thread = 0; thread < pass.threads.size(); ++thread) {
        const ThreadReading& reading = pass.threads.at(thread);
        counters.at(thread)->showReply(reading.counter);
        if (reading.state)
            states.at(thread)->showState(shownState(*reading.state));
    }
    showLive(pass.live);
}

void XThreadForm::showLive(bool live) {
    for (ReadOut* value :
         {m_ui->ProgIndex0, m_ui->ProgIndex1, m_ui->ProgStatus0, m_ui->ProgStatus1})
        value->setLive(live);
}

void XThreadForm::Command1_Click() {
    m_timer1.stop();
    m_watch.link.closePort();
    done(Accepted);
}

}  // namespace zlt
