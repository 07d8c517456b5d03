#include "terminal/forms/VariableForm.h"

#include "ui_VariableForm.h"
#include "widgets/Fields.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr std::chrono::milliseconds refreshInterval{1};

}  // namespace

VariableForm::VariableForm(const Services& world, const LinkHandOver& handedOver, QWidget* parent)
    : LinkedScreen(world, parent),
      m_ui(controlsOf<Ui::VariableForm>(*this)),
      m_watch(services(), handedOver, [this] {
          showLive(false);
          showNote();
      }) {
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.setInterval(refreshInterval);
    applyScreenRules();
    connectHandlers();
}

VariableForm::~VariableForm() = default;

void VariableForm::connectHandlers() {
    handlers.onTick(m_timer1, [this] { return Timer1_Timer(); });
    handlers.connect(m_ui->SendText, &CommandLine::entered, this, &VariableForm::SendText_Enter);
    handlers.onClick(*m_ui->Close, [this](bool) { Close_Click(); });
    connectAbort(*m_ui->stopBox, m_watch.link.connection.deviceId,
                 [this] { m_watch.link.abort(); });
}

void VariableForm::Form_Load() {
    handlers.runWithinCaller([this] {
        const BusyCursor busy;
        m_watch.link.openHandedOverPort();
        showNote();
        m_ui->DeviceID->setText(shownText(m_watch.link.connection.deviceId));
        m_timer1.start();
    });
}

void VariableForm::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    m_ui->SendText->setFocus();
}

void VariableForm::paintEvent(QPaintEvent* event) {
    Screen::paintEvent(event);
    m_painted = true;
}

std::chrono::milliseconds VariableForm::Timer1_Timer() {
    if (!m_painted)
        return refreshInterval;  // a refresh blocks, on a slow line for seconds
    const VariableReading reading = m_watch.refresh();
    const auto shown = boxes();
    for (std::size_t index = 0; index < variableCount; ++index)
        shown.at(index)->showReply(reading.values.at(index));
    showLive(reading.live);
    if (m_watch.ended())
        m_timer1.stop();
    return refreshInterval;
}

void VariableForm::SendText_Enter() {
    const std::string command = m_ui->SendText->command();
    if (command.empty())
        return;
    const std::string address = m_ui->DeviceID->address();
    m_ui->SendText->take();
    m_watch.send(address, command);
}

std::array<ReadOut*, variableCount> VariableForm::boxes() const {
    return {m_ui->V0,  m_ui->V1,  m_ui->V2,  m_ui->V3,  m_ui->V4,  m_ui->V5,  m_ui->V6,  m_ui->V7,
            m_ui->V8,  m_ui->V9,  m_ui->V10, m_ui->V11, m_ui->V12, m_ui->V13, m_ui->V14, m_ui->V15,
            m_ui->V16, m_ui->V17, m_ui->V18, m_ui->V19, m_ui->V20, m_ui->V21, m_ui->V22, m_ui->V23,
            m_ui->V24, m_ui->V25, m_ui->V26, m_ui->V27, m_ui->V28, m_ui->V29, m_ui->V30, m_ui->V31};
}

void VariableForm::showLive(bool live) {
    for (ReadOut* box : boxes())
        box->setLive(live);
}

void VariableForm::showNote() {
    m_ui->valuesNote->setText(fromUtf8(m_watch.note()));
}

void VariableForm::Close_Click() {
    m_timer1.stop();
    m_watch.link.closePort();
    done(Accepted);
}

}  // namespace zlt
