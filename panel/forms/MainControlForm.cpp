#include "panel/forms/MainControlForm.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QShowEvent>
#include <QToolTip>
#include <chrono>
#include <utility>

#include "panel/forms/TrendForm.h"
#include "parameters/forms/SetupParameters.h"
#include "programs/forms/XThreadForm.h"
#include "terminal/forms/BusForm.h"
#include "terminal/forms/TerminalForm.h"
#include "terminal/forms/VariableForm.h"
#include "ui_MainControlForm.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr std::chrono::milliseconds pollInterval{10};
constexpr std::chrono::milliseconds pollRest{200};

std::unique_ptr<Ui::MainControlForm> makeControls(QDialog& form) {
    auto controls = std::make_unique<Ui::MainControlForm>();
    controls->setupUi(&form);
    return controls;
}

}  // namespace

MainControlForm::MainControlForm(const Services& world, ProgramDraft& draft, QWidget* parent,
                                 std::shared_ptr<DeviceNotes> notes,
                                 std::shared_ptr<WindowPlaces> places)
    : Screen(world, parent),
      m_ui(makeControls(*this)),
      m_session(services(), *this),
      m_motion(m_session.link, [this] { m_session.endDemo(); }),
      m_outputs(services(), m_session.link, [this] { m_session.endDemo(); }),
      m_places(std::move(places)) {
    m_session.link.notes = std::move(notes);
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.setTimerType(Qt::PreciseTimer);
    m_timer1.setInterval(pollInterval);
    applyScreenRules();
    connectControls(draft);
}

MainControlForm::~MainControlForm() = default;

void MainControlForm::showDeviceNote() {
    const DeviceNote& note = m_session.link.notes->of(connection());
    const std::string pending = pendingText(note);
    m_ui->notStored->setHidden(note.unstored.empty());
    m_ui->pendingNote->setHidden(pending.empty());
    m_ui->pendingNote->setText(tr("from the next power-up: %1").arg(shownText(pending)));
}

template <class Form, class... Own>
void MainControlForm::showOverPanel(Own&... own) {
    const LinkHandOver handOver = m_session.link.handOver();
    m_session.link.lendPort([&] {
        Form form(services(), handOver, own..., this);
        form.Form_Load();
        form.showModal();
        if (form.stoppedAxis())
            m_session.endDemo();
    });
}

void MainControlForm::connectControls(ProgramDraft& draft) {
    handlers.onTick(m_timer1, [this] { return Timer1_Timer(); });
    m_ui->linkFrame->connectTo(handlers, services(), m_session, [this] { Command2_Click(); });
    m_ui->statusFrame->connectTo(handlers, m_motion);
    m_ui->motionFrame->connectTo(handlers, m_session, m_motion, m_outputs);
    m_ui->outputsFrame->connectTo(handlers, m_outputs);
    const auto sendMotion = [this](std::string_view command) {
        m_ui->motionFrame->withFields(
            [&](MotionFields& fields) { m_motion.SendMotionCommand(fields, command); });
    };
    m_ui->runControlFrame->connectTo(handlers, m_session.link, sendMotion,
                                     [this] { XThread_Click(); });
    m_ui->terminalFrame->connectTo(handlers, m_session.link);
    const auto fieldStop = [this](void (MotionCommands::*stop)(MotionFields&)) {
        return [this, stop] {
            m_ui->motionFrame->withFields([&](MotionFields& fields) { (m_motion.*stop)(fields); });
        };
    };
    connectStop(m_ui->stopFrame->stop(), fieldStop(&MotionCommands::stop), StopKey::none);
    connectStop(m_ui->stopFrame->abort(), fieldStop(&MotionCommands::abort), StopKey::f12);
    m_ui->programFrame->connectTo(handlers, services(), m_session.link, draft,
                                  {.stop = fieldStop(&MotionCommands::abort),
                                   .poll = [this] { return pollUnderEditor(); },
                                   .rest = [this] { m_session.holdOff(); }});
    handlers.onClick(*m_ui->Setup, [this](bool) { Setup_Click(); });
    handlers.onClick(*m_ui->ManualTerminal,
                     [this](bool) { showOverPanel<TerminalForm>(m_terminalHistory); });
    handlers.onClick(*m_ui->Variable, [this](bool) { showOverPanel<VariableForm>(); });
    handlers.onClick(*m_ui->Trend, [this](bool) { Trend_Click(); });
    handlers.onClick(*m_ui->Bus, [this](bool) { Bus_Click(); });
    handlers.onClick(*m_ui->CopyState, [this](bool) { CopyState_Click(); });
}

void MainControlForm::Form_Load(const Connection& connection) {
    handlers.runWithinCaller([&] {
        const BusyCursor busy;
        m_ui->terminalFrame->showDevice(connection.deviceId);
        m_trend.startDevice(connection.deviceId);
        if (m_session.load(connection))
            m_timer1.start();
        showDeviceNote();
    });
}

void MainControlForm::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (event->spontaneous())
        return;  // back from the task bar: the cursor stays where it was
    if (m_startsInProgram)
        m_ui->programFrame->focusProgram();
    else
        m_ui->motionFrame->focusSpeed();
}

std::chrono::milliseconds MainControlForm::Timer1_Timer() {
    QElapsedTimer pass;
    pass.start();
    m_session.pollTick();
    showDeviceNote();
    return pollInterval - std::chrono::milliseconds(pass.elapsed());
}

/// A silent controller would hold up the typing, and the demo's moves go on only where its button
/// is in sight.
std::chrono::milliseconds MainControlForm::pollUnderEditor() {
    if (m_session.link.CommOK() && !m_shown.demo)
        return Timer1_Timer();
    m_session.holdOff();
    return pollRest;
}

void MainControlForm::Command2_Click() {
    m_timer1.stop();
    m_session.unload();
    done(Accepted);
}

void MainControlForm::Setup_Click() {
    showOverPanel<SetupParameters>();
    m_ui->runControlFrame->forgetRunOnBoot();  // that screen may have set it anew
    showDeviceNote();
}

void MainControlForm::XThread_Click() {
    // The button's look is as loaded; the controller may be another one by now.
    if (m_session.link.firmware < firmwareWithSecondThread)
        return;
    showOverPanel<XThreadForm>();
}

void MainControlForm::Trend_Click() {
    if (!m_trendForm)
        m_trendForm = std::make_unique<TrendForm>(services(), *this, m_places, m_trend);
    m_trendForm->showDevice(connection().deviceId);
    m_trendForm->showBeside();
}

void MainControlForm::Bus_Click() {
    if (!m_bus)
        m_bus = std::make_unique<BusForm>(services(), *this, m_places);
    m_bus->showBeside();
}

void MainControlForm::CopyState_Click() {
    constexpr std::size_t exchanges = 50;
    const BusLog& log = *services().busLog;
    const std::string text = stateText({.now = log.now(),
                                        .connection = connection(),
                                        .portDevice = link().portDevice(),
                                        .panel = m_shown,
                                        .readOuts = m_readOuts,
                                        .note = m_session.link.notes->of(connection()),
                                        .exchanges = log.last(exchanges, true),
                                        .exchangesButPoll = log.last(exchanges, false)});
    QGuiApplication::clipboard()->setText(fromUtf8(text));
    QToolTip::showText(m_ui->CopyState->mapToGlobal(QPoint(0, m_ui->CopyState->height())),
                       tr("The state is on the clipboard: paste it into a mail or a file."),
                       m_ui->CopyState);
}

// What the rules show, passed on to the frames that show it

void MainControlForm::showState(const PanelState& state) {
    if (state == m_shown)
        return;
    const PanelState before = std::exchange(m_shown, state);
    const auto now = services().busLog->now().steady;
    if (before.id != state.id && state.id != unknownText)
        m_readOuts.note("Product", state.id, now);
    if (before.version != state.version && state.version != unknownText)
        m_readOuts.note("Firmware", state.version, now);
    m_ui->linkFrame->showState(state);
    m_ui->statusFrame->showState(state);
    m_ui->motionFrame->showState(state);
    m_ui->outputsFrame->showState(state);
    m_ui->stopFrame->showState(state);
    m_ui->terminalFrame->showLive(state.live);
    showDeviceNote();
    if (!state.live) {
        m_trend.breakOff();
        m_ui->programFrame->hideProgress();
    }
    if (m_trendForm)
        m_trendForm->showDevice(state.device);
    if (state.loadedFirmware)
        m_ui->runControlFrame->gateFeatures(*state.loadedFirmware);
    if (before.live && !state.live)
        repaint();
    else if (before.link != state.link)
        m_ui->linkFrame->repaint();
}

void MainControlForm::showReading(const AxisReading& reading) {
    if (m_session.link.CommOK())  // or the zeros of a time-out would pass for values
        m_readOuts.note(reading, services().busLog->now().steady);
    m_ui->statusFrame->showReading(reading);
    m_ui->motionFrame->showReading(reading);
    m_ui->outputsFrame->showReading(reading);
    const bool whole = m_session.link.CommOK();
    // After a time-out the zeros are no values, and what came later may be another command's.
    if (whole)
        m_trend.add(reading);
    if (whole && reading.program)
        m_ui->programFrame->showProgress(reading.program->line, reading.program->state);
    else
        m_ui->programFrame->hideProgress();
}

void MainControlForm::fillSettings(std::string_view speed, std::string_view acceleration) {
    m_ui->motionFrame->fillSettings(speed, acceleration);
}

void MainControlForm::resetSync() {
    m_ui->outputsFrame->resetSync();
}

void MainControlForm::deviceSwitched(std::string_view before, std::string_view now) {
    m_readOuts.clear();
    m_ui->outputsFrame->clearMarks();
    m_ui->motionFrame->clearMarks();
    m_ui->runControlFrame->forgetRunOnBoot();
    m_ui->terminalFrame->followDevice(before, now);
    m_trend.startDevice(std::string(now));
}

void MainControlForm::forgetProgram() {
    m_ui->programFrame->forgetController();
    m_ui->statusFrame->forgetProgram();
    m_ui->outputsFrame->forgetProgram();
}

}  // namespace zlt
