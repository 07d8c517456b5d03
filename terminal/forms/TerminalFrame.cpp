#include "terminal/forms/TerminalFrame.h"

#include "terminal/TerminalTalk.h"
#include "ui_TerminalFrame.h"
#include "widgets/WireText.h"

namespace zlt {

TerminalFrame::TerminalFrame(Handlers& handlers, PanelLink& link, QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::TerminalFrame>()) {
    m_ui->setupUi(this);
    m_ui->DeviceIDComboTerminal->addItem(QStringLiteral("00"));
    addDeviceIds(*m_ui->DeviceIDComboTerminal);
    CommandLine& line = *m_ui->SendTerminalText;
    handlers.onSignal(line, &CommandLine::entered, [&] { SendTerminalText_Enter(link); });
    handlers.onSignal(line, &CommandLine::recalled, [this] { SendTerminalText_Recall(); });
}

TerminalFrame::~TerminalFrame() = default;

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

void TerminalFrame::SendTerminalText_Enter(PanelLink& link) {
    if (!link.CommOK())
        return;
    const std::string command = m_ui->SendTerminalText->command();
    if (command.empty())
        return;
    const std::string address = commandText(m_ui->DeviceIDComboTerminal->currentText());
    const auto written = [this] {
        m_lastCommand = m_ui->SendTerminalText->text();
        m_ui->SendTerminalText->take();
        showReply({});
    };
    const auto replyGrew = [this](std::string_view soFar) {
        if (m_pace.due())
            showReply(soFar);
    };
    showReply(talkInReplyBox(link, address, command, {written, replyGrew}));
}

void TerminalFrame::SendTerminalText_Recall() {
    m_ui->SendTerminalText->setText(m_lastCommand);
}

void TerminalFrame::showReply(std::string_view soFar) {
    m_ui->ReceiveTerminalText->showReply(soFar);
    m_ui->ReceiveTerminalText->repaint();
}

}  // namespace zlt
