#include "panel/forms/MainControlForm.h"

#include <QElapsedTimer>
#include <QShowEvent>
#include <chrono>

#include "panel/AboutText.h"
#include "parameters/forms/SetupParameters.h"
#include "programs/forms/XThreadForm.h"
#include "terminal/forms/TerminalForm.h"
#include "terminal/forms/VariableForm.h"
#include "ui_LinkFrame.h"
#include "ui_MainControlForm.h"
#include "ui_MotionFrame.h"
#include "ui_StopFrame.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr std::chrono::milliseconds pollInterval{10};
constexpr const char* helpFile = "ZLT42R-485.HLP";

std::unique_ptr<Ui::MainControlForm> makeControls(QDialog& form) {
    auto controls = std::make_unique<Ui::MainControlForm>();
    controls->setupUi(&form);
    return controls;
}

}  // namespace

MainControlForm::MainControlForm(const Services& world, ProgramDraft& draft, QWidget* parent)
    : Screen(world, parent),
      m_ui(makeControls(*this)),
      m_session(services(), *this),
      m_motion(m_session.link, *m_ui->motionFrame, [this] { m_session.endDemo(); }),
      m_outputs(services(), m_session.link, *m_ui->outputsFrame, [this] { m_session.endDemo(); }) {
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.setTimerType(Qt::PreciseTimer);
    m_timer1.setInterval(pollInterval);
    teachManners();
    connectHandlers();
    connectFrames(draft);
}

MainControlForm::~MainControlForm() = default;

void MainControlForm::connectHandlers() {
    const auto& link = m_ui->linkFrame->controls();
    handlers.onTick(m_timer1, [this] { return Timer1_Timer(); });
    handlers.connect(link.SelectedDeviceID, &QComboBox::activated, this,
                     &MainControlForm::SelectedDeviceID_Click);
    handlers.onClick(*link.About, [this](bool) { About_Click(); });
    handlers.onClick(*link.Help, [this](bool) { Help_Click(); });
    handlers.onClick(*link.Command2, [this](bool) { Command2_Click(); });
    handlers.onClick(*m_ui->motionFrame->controls().Command5, [this](bool) { Command5_Click(); });
}

void MainControlForm::connectFrames(ProgramDraft& draft) {
    const auto& stops = m_ui->stopFrame->controls();
    connectStop(
        *stops.RSTOP, [this] { m_motion.RSTOP_Press(); }, StopKey::none);
    connectStop(
        *stops.ISTOP, [this] { m_motion.ISTOP_Press(); }, StopKey::f12);
    connectTable(MotionCommands::motionButtons(), &MotionCommands::pressMotion);
    connectTable(MotionCommands::plainButtons(), &MotionCommands::pressPlain);
    m_ui->motionFrame->connectTo(handlers, m_motion, m_outputs,
                                 [this] { return m_ui->statusFrame->motionShown(); });
    m_ui->outputsFrame->connectTo(handlers, m_outputs);
    m_ui->programFrame->connectTo(handlers, services(), m_session.link, draft);
    m_ui->terminalFrame->connectTo(handlers, m_session.link);
    handlers.onClick(*m_ui->ManualTerminal, [this](bool) { ManualTerminal_Click(); });
    handlers.onClick(*m_ui->Variable, [this](bool) { Variable_Click(); });
    handlers.onClick(*m_ui->Setup, [this](bool) { Setup_Click(); });
    m_ui->runControlFrame->connectTo(
        handlers, m_session.link,
        [this](std::string_view command) { m_motion.SendMotionCommand(command); },
        [this] { XThread_Click(); });
}

void MainControlForm::connectTable(std::span<const CommandButton> buttons,
                                   void (MotionCommands::*press)(const CommandButton&)) {
    for (const CommandButton& row : buttons) {
        auto* button = findChild<QAbstractButton*>(QLatin1String(row.control));
        Q_ASSERT(button);
        handlers.onClick(*button, [this, row, press](bool) { (m_motion.*press)(row); });
    }
}

void MainControlForm::Form_Load(const Connection& connection) {
    handlers.runWithinCaller([&] {
        const BusyCursor busy;
        m_ui->terminalFrame->showDevice(connection.deviceId);
        m_ui->stopFrame->showDevice(connection.deviceId);
        if (m_session.load(connection))
            m_timer1.start();
    });
}

void MainControlForm::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (event->spontaneous())
        return;  // back from the task bar: the cursor stays where it was
    if (m_startsInProgram)
        m_ui->programFrame->focusProgram();
    else
        m_ui->motionFrame->controls().SetSpeed->setFocus();
}

std::chrono::milliseconds MainControlForm::Timer1_Timer() {
    QElapsedTimer pass;
    pass.start();
    m_session.pollTick();
    return pollInterval - std::chrono::milliseconds(pass.elapsed());
}

void MainControlForm::heldOff() {
    m_session.holdOff();
}

void MainControlForm::SelectedDeviceID_Click(int index) {
    m_session.switchDevice(wireText(m_ui->linkFrame->controls().SelectedDeviceID->itemText(index)));
}

void MainControlForm::Command5_Click() {
    m_session.toggleDemo();
}

void MainControlForm::About_Click() {
    services().gate.message(aboutText);
}

void MainControlForm::Help_Click() {
    services().help.openContents(helpFile);
}

void MainControlForm::Command2_Click() {
    m_timer1.stop();
    m_session.unload();
    done(Accepted);
}

template <class Form>
void MainControlForm::showOverPanel() {
    const LinkHandOver handOver = m_session.link.handOver();
    m_session.link.lendPort([&] {
        Form form(services(), handOver, this);
        form.Form_Load();
        form.showModal();
        if (form.stoppedAxis())
            m_session.endDemo();
    });
}

void MainControlForm::Setup_Click() {
    showOverPanel<SetupParameters>();
    m_ui->runControlFrame->forgetRunOnBoot();  // that screen may have set it anew
}

void MainControlForm::ManualTerminal_Click() {
    showOverPanel<TerminalForm>();
}

void MainControlForm::Variable_Click() {
    showOverPanel<VariableForm>();
}

void MainControlForm::XThread_Click() {
    // The button's look is as loaded; the controller may be another one by now.
    if (m_session.link.firmware < firmwareWithSecondThread)
        return;
    showOverPanel<XThreadForm>();
}

// What the rules show, passed on to the frame that shows it

void MainControlForm::showLinkText(std::string_view text) {
    m_ui->linkFrame->showLinkText(text);
}

void MainControlForm::showLinkState(std::string_view text, Rgb colour) {
    m_ui->linkFrame->showLinkState(text, colour);
}

void MainControlForm::showLive(bool live) {
    const auto show = [live](auto& frame) {
        frame.showLive(live);
        if (!live)
            frame.repaint();
    };
    show(*m_ui->linkFrame);
    show(*m_ui->statusFrame);
    show(*m_ui->motionFrame);
    show(*m_ui->outputsFrame);
    show(*m_ui->terminalFrame);
}

void MainControlForm::showSelectedDevice(std::string_view deviceId) {
    m_ui->linkFrame->showSelectedDevice(deviceId);
}

void MainControlForm::showIdentity(std::string_view id) {
    m_ui->linkFrame->showIdentity(id);
}

void MainControlForm::showVersion(std::string_view version) {
    m_ui->linkFrame->showVersion(version);
}

void MainControlForm::showBaudRate(std::string_view baudRate) {
    m_ui->linkFrame->showBaudRate(baudRate);
}

void MainControlForm::showPortRemark(std::string_view remark) {
    m_ui->linkFrame->showPortRemark(remark);
}

void MainControlForm::showSpeed(std::string_view speed) {
    m_ui->motionFrame->showSpeed(speed);
}

void MainControlForm::showAcceleration(std::string_view acceleration) {
    m_ui->motionFrame->showAcceleration(acceleration);
}

void MainControlForm::resetSync() {
    m_ui->outputsFrame->resetSync();
}

void MainControlForm::showDeviceSwitch(std::string_view before, std::string_view now) {
    m_ui->outputsFrame->clearMarks();
    m_ui->motionFrame->clearMarks();
    m_ui->runControlFrame->forgetRunOnBoot();
    m_ui->terminalFrame->followDevice(before, now);
    m_ui->stopFrame->showDevice(now);
}

void MainControlForm::gateFeatures(FirmwareVersion firmware) {
    m_ui->motionFrame->gateFeatures(firmware);
    m_ui->runControlFrame->gateFeatures(firmware);
}

void MainControlForm::showReading(const AxisReading& reading) {
    m_ui->statusFrame->showReading(reading);
    if (reading.driverEnabled)
        m_ui->motionFrame->showDriverEnabled(*reading.driverEnabled);
    if (reading.program && reading.program->output)
        m_ui->outputsFrame->showOutput(*reading.program->output);
}

void MainControlForm::forgetProgram() {
    m_ui->statusFrame->forgetProgram();
    m_ui->outputsFrame->showOutput(false);
}

void MainControlForm::showDemo(bool on) {
    m_ui->motionFrame->showDemo(on);
}

}  // namespace zlt
