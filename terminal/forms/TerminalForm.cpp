#include "terminal/forms/TerminalForm.h"

#include "platform/Files.h"
#include "terminal/TerminalTalk.h"
#include "ui_TerminalForm.h"
#include "widgets/WireText.h"

namespace zlt {

TerminalForm::TerminalForm(const Services& world, const LinkHandOver& handedOver,
                           CommandHistory& history, QWidget* parent)
    : LinkedScreen(world, parent),
      m_ui(std::make_unique<Ui::TerminalForm>()),
      m_link(services(), flavours::terminal, nullptr),
      m_history(history) {
    m_ui->setupUi(this);
    m_link.takeOver(handedOver);
    m_history.endWalk();
    applyScreenRules();
    connectHandlers();
}

TerminalForm::~TerminalForm() = default;

void TerminalForm::connectHandlers() {
    handlers.connect(m_ui->SendText, &CommandLine::entered, this, &TerminalForm::SendText_Enter);
    handlers.connect(m_ui->SendText, &CommandLine::recalled, this, &TerminalForm::SendText_Recall);
    handlers.connect(m_ui->SendText, &CommandLine::older, this, &TerminalForm::SendText_Older);
    handlers.connect(m_ui->SendText, &CommandLine::newer, this, &TerminalForm::SendText_Newer);
    handlers.connect(m_ui->SendText, &CommandLine::paged, m_ui->Pad, &Transcript::scrollPages);
    handlers.connect(m_ui->Pad, &Transcript::clicked, this, &TerminalForm::focusEntry);
    handlers.onClick(*m_ui->Command2, [this](bool) { Command2_Click(); });
    handlers.onClick(*m_ui->Close, [this](bool) { Close_Click(); });
    connectAbort(*m_ui->stopBox, m_link.connection.deviceId, [this] { ISTOP_Press(); });
}

void TerminalForm::Form_Load() {
    handlers.runWithinCaller([this] {
        const BusyCursor busy;
        m_ui->DeviceID->setText(shownText(m_link.connection.deviceId));
        if (!m_link.PortReady())
            services().gate.message("Communication port not open!");
        m_link.openHandedOverPort();  // without it each command says so
    });
}

void TerminalForm::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    focusEntry();
}

void TerminalForm::focusEntry() {
    m_ui->SendText->setFocus();
}

void TerminalForm::SendText_Enter() {
    const std::string command = m_ui->SendText->command();
    m_lastCommand = m_ui->SendText->text();
    if (command.empty())
        return;
    const std::string address = m_ui->DeviceID->address();
    m_ui->SendText->take();
    m_history.add(m_lastCommand.toStdString());
    talk(address, command);
    focusEntry();
}

void TerminalForm::talk(std::string_view address, std::string_view command) {
    talkInTranscript(m_link, address, command,
                     [this](std::string_view text) { m_ui->Pad->write(text); });
    m_ui->Pad->placeCaret();
}

void TerminalForm::SendText_Recall() {
    m_ui->SendText->setText(m_lastCommand);
}

void TerminalForm::SendText_Older() {
    m_ui->SendText->setText(fromUtf8(m_history.older(m_ui->SendText->text().toStdString())));
}

void TerminalForm::SendText_Newer() {
    m_ui->SendText->setText(fromUtf8(m_history.newer(m_ui->SendText->text().toStdString())));
}

void TerminalForm::Command2_Click() {
    focusEntry();
    const auto name = chooseSaveName(
        services().gate, {"Save Terminal Text As", "Terminal Text Files (*.txt)|*.txt", {}},
        "No Program Name!");
    if (!name)
        return;
    const auto failure = services().files.writeWhole(*name, savedTranscript(m_ui->Pad->text()));
    services().gate.message(failure ? notSaved("The text", *name, *failure) : "Save Done!");
}

void TerminalForm::ISTOP_Press() {
    talk(m_link.connection.deviceId, "ABORT");
}

void TerminalForm::Close_Click() {
    m_link.closePort();
    done(Accepted);
}

}  // namespace zlt
