#include "panel/forms/MainControlForm.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>
#include <chrono>
#include <initializer_list>
#include <utility>

#include "panel/forms/LinkFrame.h"
#include "panel/forms/MotionFrame.h"
#include "panel/forms/OutputsFrame.h"
#include "panel/forms/ScreensFrame.h"
#include "panel/forms/StatusFrame.h"
#include "panel/forms/StopFrame.h"
#include "panel/forms/TrendForm.h"
#include "parameters/forms/SetupParameters.h"
#include "programs/forms/ProgramFrame.h"
#include "programs/forms/RunControlFrame.h"
#include "programs/forms/XThreadForm.h"
#include "terminal/forms/BusForm.h"
#include "terminal/forms/TerminalForm.h"
#include "terminal/forms/TerminalFrame.h"
#include "terminal/forms/VariableForm.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr std::chrono::milliseconds pollInterval{10};
constexpr std::chrono::milliseconds pollRest{200};

constexpr int panelMargin = 12;
constexpr int frameSpacing = 8;

/// Frames below each other.
QVBoxLayout* makeColumn(std::initializer_list<QWidget*> frames) {
    auto* column = new QVBoxLayout;
    column->setSpacing(frameSpacing);
    for (QWidget* frame : frames)
        column->addWidget(frame);
    return column;
}

}  // namespace

MainControlForm::MainControlForm(const Services& world, ProgramDraft& draft, QWidget* parent,
                                 std::shared_ptr<DeviceNotes> notes,
                                 std::shared_ptr<WindowPlaces> places)
    : Screen(world, parent),
      m_session(services(), *this),
      m_motion(m_session.link, [this] { m_session.endDemo(); }),
      m_outputs(services(), m_session.link, [this] { m_session.endDemo(); }),
      m_linkFrame(new LinkFrame(
          handlers, services(), m_session, [this] { Command2_Click(); }, this)),
      m_statusFrame(new StatusFrame(handlers, m_motion, this)),
      m_outputsFrame(new OutputsFrame(handlers, m_outputs, this)),
      m_screensFrame(
          new ScreensFrame(handlers,
                           {.setup = [this] { Setup_Click(); },
                            .terminal = [this] { showOverPanel<TerminalForm>(m_terminalHistory); },
                            .variables = [this] { showOverPanel<VariableForm>(); },
                            .trend = [this] { Trend_Click(); },
                            .bus = [this] { Bus_Click(); },
                            .copyState = [this] { CopyState_Click(); }},
                           this)),
      m_stopFrame(new StopFrame(this)),
      m_motionFrame(new MotionFrame(handlers, m_session, m_motion, m_outputs, this)),
      m_programFrame(new ProgramFrame(handlers, services(), m_session.link, draft,
                                      {.stop = fieldStop(&MotionCommands::abort),
                                       .poll = [this] { return pollUnderEditor(); },
                                       .rest = [this] { m_session.holdOff(); }},
                                      this)),
      m_runControlFrame(new RunControlFrame(
          handlers, m_session.link,
          [this](std::string_view command) { sendMotionCommand(command); },
          [this] { XThread_Click(); }, this)),
      m_terminalFrame(new TerminalFrame(handlers, m_session.link, this)),
      m_places(std::move(places)) {
    setObjectName(QStringLiteral("MainControlForm"));
    setWindowTitle(QStringLiteral("ZLT-R-NX-42"));
    m_session.link.notes = std::move(notes);
    m_timer1.setObjectName(QStringLiteral("Timer1"));
    m_timer1.setTimerType(Qt::PreciseTimer);
    m_timer1.setInterval(pollInterval);
    handlers.onTick(m_timer1, [this] { return Timer1_Timer(); });
    connectStop(m_stopFrame->stop(), fieldStop(&MotionCommands::stop), StopKey::none);
    connectStop(m_stopFrame->abort(), fieldStop(&MotionCommands::abort), StopKey::f12);
    placeFrames();
    applyScreenRules();
}

MainControlForm::~MainControlForm() = default;

/// The strip on top; reading on the left, moving in the middle, the program on the right.
void MainControlForm::placeFrames() {
    auto* left = makeColumn({m_statusFrame, m_outputsFrame, m_screensFrame});
    left->insertStretch(2, 1);
    left->setStretchFactor(m_statusFrame, 1);
    auto* right = makeColumn({m_programFrame, m_runControlFrame, m_terminalFrame});
    right->setStretchFactor(m_programFrame, 1);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(panelMargin);
    columns->addLayout(left, 2);
    columns->addLayout(makeColumn({m_stopFrame, m_motionFrame}));
    columns->addLayout(right, 3);
    auto* rows = makeColumn({m_linkFrame});
    rows->setContentsMargins(panelMargin, panelMargin, panelMargin, panelMargin);
    rows->addLayout(columns);
    setLayout(rows);
}

void MainControlForm::showDeviceNote() {
    m_screensFrame->showDeviceNote(m_session.link.notes->of(connection()));
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

void MainControlForm::sendMotionCommand(std::string_view command) {
    m_motionFrame->withFields(
        [&](MotionFields& fields) { m_motion.SendMotionCommand(fields, command); });
}

std::function<void()> MainControlForm::fieldStop(void (MotionCommands::*stop)(MotionFields&)) {
    return [this, stop] {
        m_motionFrame->withFields([&](MotionFields& fields) { (m_motion.*stop)(fields); });
    };
}

void MainControlForm::Form_Load(const Connection& connection) {
    handlers.runWithinCaller([&] {
        const BusyCursor busy;
        m_terminalFrame->showDevice(connection.deviceId);
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
        m_programFrame->focusProgram();
    else
        m_motionFrame->focusSpeed();
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
    m_runControlFrame->forgetRunOnBoot();  // that screen may have set it anew
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
    m_linkFrame->showState(state);
    m_statusFrame->showState(state);
    m_motionFrame->showState(state);
    m_outputsFrame->showState(state);
    m_stopFrame->showState(state);
    m_terminalFrame->showLive(state.live);
    showDeviceNote();
    if (!state.live) {
        m_trend.breakOff();
        m_programFrame->hideProgress();
    }
    if (m_trendForm)
        m_trendForm->showDevice(state.device);
    if (state.loadedFirmware)
        m_runControlFrame->gateFeatures(*state.loadedFirmware);
    if (before.live && !state.live)
        repaint();
    else if (before.link != state.link)
        m_linkFrame->repaint();
}

void MainControlForm::showReading(const AxisReading& reading) {
    if (m_session.link.CommOK())  // or the zeros of a time-out would pass for values
        m_readOuts.note(reading, services().busLog->now().steady);
    m_statusFrame->showReading(reading);
    m_motionFrame->showReading(reading);
    m_outputsFrame->showReading(reading);
    const bool whole = m_session.link.CommOK();
    // After a time-out the zeros are no values, and what came later may be another command's.
    if (whole)
        m_trend.add(reading);
    if (whole && reading.program)
        m_programFrame->showProgress(reading.program->line, reading.program->state);
    else
        m_programFrame->hideProgress();
}

void MainControlForm::fillSettings(std::string_view speed, std::string_view acceleration) {
    m_motionFrame->fillSettings(speed, acceleration);
}

void MainControlForm::resetSync() {
    m_outputsFrame->resetSync();
}

void MainControlForm::deviceSwitched(std::string_view before, std::string_view now) {
    m_readOuts.clear();
    m_outputsFrame->clearMarks();
    m_motionFrame->clearMarks();
    m_runControlFrame->forgetRunOnBoot();
    m_terminalFrame->followDevice(before, now);
    m_trend.startDevice(std::string(now));
}

void MainControlForm::forgetProgram() {
    m_programFrame->forgetController();
    m_statusFrame->forgetProgram();
    m_outputsFrame->forgetProgram();
}

}  // namespace zlt
