#include "terminal/forms/VariableForm.h"

#include <chrono>
#include <string>

#include "ui_VariableForm.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr std::chrono::milliseconds refreshInterval{1};

}  // namespace

VariableForm::VariableForm(const Services& world, const LinkHandOver& handedOver, QWidget* parent)
    : LinkedScreen(world, parent),
      m_ui(std::make_unique<Ui::VariableForm>()),
      m_link(services(), flavours::variables, this) {
    m_ui->setupUi(this);
    for (std::size_t index = 0; index < m_boxes.size(); ++index)
        m_boxes.at(index) = findChild<ReadOut*>(QStringLiteral("V%1").arg(index));
    m_link.takeOver(handedOver);
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.setInterval(refreshInterval);
    teachManners();
    connectHandlers();
}

VariableForm::~VariableForm() = default;

void VariableForm::connectHandlers() {
    handlers.onTick(m_timer1, [this] { return Timer1_Timer(); });
    handlers.connect(m_ui->SendText, &CommandLine::entered, this, &VariableForm::SendText_Enter);
    handlers.onClick(*m_ui->Close, [this](bool) { Close_Click(); });
    connectAbort(*m_ui->stopBox, m_link.connection.deviceId, [this] { m_link.abort(); });
}

void VariableForm::Form_Load() {
    handlers.runWithinCaller([this] {
        const BusyCursor busy;
        m_link.openHandedOverPort();
        m_ui->valuesNote->setText(
            tr("Values of device %1").arg(shownText(m_link.connection.deviceId)));
        m_ui->DeviceID->setText(shownText(m_link.connection.deviceId));
        m_timer1.start();
    });
}

void VariableForm::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    m_ui->SendText->setFocus();
}

std::chrono::milliseconds VariableForm::Timer1_Timer() {
    const bool live = m_link.CommOK();
    for (std::size_t index = 0; index < m_boxes.size(); ++index)
        m_boxes.at(index)->showReply(m_link.SendReceive("V" + std::to_string(index)));
    if (!live)
        m_timer1.stop();  // every box reads "0" by now, and will
    showLive(m_link.CommOK());
    return refreshInterval;
}

void VariableForm::SendText_Enter() {
    const std::string command = m_ui->SendText->command();
    if (command.empty())
        return;
    const std::string address = m_ui->DeviceID->address();
    m_ui->SendText->take();
    m_link.converse({.deviceId = address, .command = command, .tellsLoss = false});
}

void VariableForm::commChanged(bool connected) {
    // Dimmed before the message is up; live again once all have been read.
    if (!connected)
        showLive(false);
}

void VariableForm::showLive(bool live) {
    for (ReadOut* box : m_boxes)
        box->setLive(live);
}

void VariableForm::Close_Click() {
    m_timer1.stop();
    m_link.closePort();
    done(Accepted);
}

}  // namespace zlt
