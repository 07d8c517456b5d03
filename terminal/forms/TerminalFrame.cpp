#include "terminal/forms/TerminalFrame.h"

#include "ui_TerminalFrame.h"
#include "widgets/WireText.h"

namespace zlt {

TerminalFrame::TerminalFrame(QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::TerminalFrame>()) {
    m_ui->setupUi(this);
    m_ui->DeviceIDComboTerminal->addItem(QStringLiteral("00"));
    addDeviceIds(*m_ui->DeviceIDComboTerminal);
}

TerminalFrame::~TerminalFrame() = default;

void TerminalFrame::connectTo(Handlers& handlers, PanelLink& link) {
    m_link = &link;
    handlers.connect(m_ui->SendTerminalText, &CommandLine::entered, this,
                     &TerminalFrame::SendTerminalText_Enter);
    handlers.connect(m_ui->SendTerminalText, &CommandLine::recalled, this,
                     &TerminalFrame::SendTerminalText_Recall);
}

void TerminalFrame::showDevice(std::string_view deviceId) {
    m_ui->DeviceIDComboTerminal->showText(deviceId);
}

void TerminalFrame::followDevice(std::string_view before, std::string_view now) {
    if (m_ui->DeviceIDComboTerminal->currentText() == shownText(before))
        showDevice(now);
}

void TerminalFrame::showLive(bool live) {
    m_ui->ReceiveTerminalText->setLive(live);
}

void TerminalFrame::SendTerminalText_Enter() {
    if (!m_link->CommOK())
        return;
    const std::string command = m_ui->SendTerminalText->command();
    if (command.empty())
        return;
    const std::string address = commandText(m_ui->DeviceIDComboTerminal->currentText());
    talkInReplyBox(*m_link, address, command, *this);
}

void TerminalFrame::SendTerminalText_Recall() {
    m_ui->SendTerminalText->setText(m_lastCommand);
}

void TerminalFrame::requestWritten() {
    m_lastCommand = m_ui->SendTerminalText->text();
    m_ui->SendTerminalText->clear();
    m_ui->SendTerminalText->repaint();
    m_reply.clear();
    showReplySoFar();
}

void TerminalFrame::growReply(char character) {
    m_reply += character;
    if (m_pace.due())
        showReplySoFar();
}

void TerminalFrame::showReplySoFar() {
    m_ui->ReceiveTerminalText->showReply(m_reply);
    m_ui->ReceiveTerminalText->repaint();
}

void TerminalFrame::showInsteadOfReply(std::string_view text) {
    m_ui->ReceiveTerminalText->showReply(text);
}

}  // namespace zlt
