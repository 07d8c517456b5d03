#include "app/SelectComForm.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLayout>
#include <chrono>

#include "app/SearchCom.h"
#include "app/StartUpNotes.h"
#include "link/Exchange.h"
#include "panel/forms/MainControlForm.h"
#include "platform/Text.h"
#include "ui_SelectComForm.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

/// How often the note follows adapters that come and go.
constexpr std::chrono::seconds portNoteInterval{1};

/// Shows a search until it is over. False when there was no port to search on.
bool runSearch(SearchCom& progress) {
    progress.Form_Load();
    progress.showModal();
    return !progress.noPort();
}

}  // namespace

SelectComForm::SelectComForm(const Services& services, PortDirectory& directory)
    : Screen(services),
      m_directory(directory),
      m_memory(services.files, services.dataFolder),
      m_draft(services),
      m_ui(std::make_unique<Ui::SelectComForm>()) {
    m_ui->setupUi(this);
    m_ui->portDevice->hide();
    m_ui->portProblem->hide();
    m_ui->portCommandRow->hide();
    m_ui->portRemarks->hide();
    m_ui->settingsNote->hide();
    m_ui->unsavedRow->hide();
    m_portTimer.setObjectName(QStringLiteral("portTimer"));
    m_portTimer.setInterval(portNoteInterval);
    applyScreenRules();
    connectHandlers();
}

SelectComForm::~SelectComForm() = default;

void SelectComForm::connectHandlers() {
    handlers.onClick(*m_ui->Command25, [this](bool) { Command25_Click(); });
    handlers.onClick(*m_ui->ProgramEdit, [this](bool) { ProgramEdit_Click(); });
    handlers.onClick(*m_ui->SearchZLT, [this](bool) { SearchZLT_Click(); });
    handlers.onClick(*m_ui->SearchAllZLT, [this](bool) { SearchAllZLT_Click(); });
    handlers.onClick(*m_ui->Close, [this](bool) { Close_Click(); });
    handlers.onClick(*m_ui->openUnsaved, [this](bool) { openUnsaved_Click(); });
    handlers.onClick(*m_ui->dropUnsaved, [this](bool) { dropUnsaved_Click(); });
    handlers.onClick(*m_ui->copyCommand, [this](bool) { copyCommand_Click(); });
    handlers.onClick(m_ui->pendingNote->button(), [this](bool) { usePending_Click(); });
    for (QComboBox* box : {m_ui->combo, m_ui->baudCom, m_ui->DeviceIDCombo})
        handlers.connect(box, &QComboBox::currentTextChanged, this, &SelectComForm::boxes_Changed);
    handlers.connect(&m_portTimer, &QTimer::timeout, this, &SelectComForm::portTimer_Timer);
}

void SelectComForm::Form_Load() {
    handlers.run([this] {
        fillBoxes();
        const Settings settings = readSettings(services().files.read(settingsFileName).whole());
        m_ui->combo->showText(settings.port);
        m_ui->baudCom->showText(settings.baud);
        m_ui->DeviceIDCombo->showText(settings.deviceId);
        showUnsaved();
    });
}

void SelectComForm::fillBoxes() {
    for (PortNumber number{1}; number.value <= portCount; ++number.value)
        m_ui->combo->addItem(shownText(portText(number)));
    addBaudRates(*m_ui->baudCom);
    addDeviceIds(*m_ui->DeviceIDCombo);
}

void SelectComForm::paintEvent(QPaintEvent* event) {
    Screen::paintEvent(event);
    // Looking for ports takes a while: only once the operator sees the screen.
    if (!m_portTimer.isActive()) {
        m_portTimer.start();
        QTimer::singleShot(0, this, [this] { handlers.run([this] { portTimer_Timer(); }); });
    }
}

Settings SelectComForm::typedSettings() const {
    return {wireText(m_ui->combo->currentText()), wireText(m_ui->baudCom->currentText()),
            wireText(m_ui->DeviceIDCombo->currentText())};
}

void SelectComForm::saveSettings(const Settings& settings) {
    const auto failure = services().files.writeWhole(settingsFileName, settingsFileText(settings));
    m_ui->settingsNote->setVisible(failure.has_value());
    if (failure)
        m_ui->settingsNote->setText(
            tr("These settings could not be saved in %1: %2")
                .arg(fromUtf8(settingsFileName), fromUtf8(failure->reason)));
    makeRoom();
}

void SelectComForm::Command25_Click() {
    connectToController(false);
}

void SelectComForm::ProgramEdit_Click() {
    connectToController(true);
}

void SelectComForm::connectToController(bool startInProgram) {
    const Settings settings = typedSettings();
    saveSettings(settings);
    const PortNumber port = portNumberFromText(settings.port);
    m_lineFault = LineFault::none;
    // Plugging and the port list change nothing under a running panel.
    const SettledPort settled(m_directory, port);
    m_memory.remember(port, m_directory.entry(port));
    MainControlForm panel(services(), m_draft, this, m_notes, m_places);
    if (startInProgram)
        panel.startInProgram();
    panel.Form_Load({port, settings.baud, settings.deviceId});
    if (!panel.link().CommOK())
        m_lineFault = panel.link().lineFault();
    panel.showModal();
    m_lastDevice = panel.connection();
    showPending();
    showPort();
}

void SelectComForm::SearchZLT_Click() {
    SearchCom progress(services(), SearchMode::firstFound, this);
    const bool anyPort = runSearch(progress);
    noteAnswers(progress.search());
    if (!anyPort)
        return;
    const auto& device = progress.search().found();
    if (!device) {
        const std::string& losses = progress.search().losses();
        services().gate.message(
            losses.empty() ? "Device not found!  Please check wiring and power inputs" : losses);
        return;
    }
    m_ui->combo->showText(portText(device->port));
    m_ui->baudCom->showText(device->baudRate);
    m_ui->DeviceIDCombo->showText(device->deviceId);
    showPort();
    services().gate.message("ZLT-R-NX Found on Port:" + searchResultText(*device));
}

void SelectComForm::SearchAllZLT_Click() {
    SearchCom progress(services(), SearchMode::all, this);
    const bool anyPort = runSearch(progress);
    noteAnswers(progress.search());
    if (!anyPort)
        return;
    const std::string told = progress.search().results() + progress.search().losses();
    services().gate.message(told.empty() ? "No device found!" : told);
}

void SelectComForm::Close_Click() {
    try {
        saveSettings(typedSettings());
    } catch (const std::exception& error) {
        // The operator wants to leave; what no file can hold is not saved as something else.
        services().gate.message(error.what());
    }
    if (mayClose())
        services().programEnd.endProgram(0);
}

bool SelectComForm::mayClose() {
    const auto failure = m_draft.keep();
    return !failure || services().gate.ask("Program not saved",
                                           "The program text is not saved, and cannot be kept for "
                                           "the next start: " +
                                               failure->reason + ".\r\nClose all the same?");
}

void SelectComForm::openUnsaved_Click() {
    m_draft.openKept();
    showUnsaved();
    connectToController(true);
}

void SelectComForm::dropUnsaved_Click() {
    if (!services().gate.ask("Discard", "Discard the program text that was kept?"))
        return;
    m_draft.dropKept();
    showUnsaved();
}

void SelectComForm::showUnsaved() {
    m_ui->unsavedRow->setVisible(m_draft.anyKept());
}

void SelectComForm::copyCommand_Click() {
    QGuiApplication::clipboard()->setText(m_ui->portCommand->text());
}

void SelectComForm::usePending_Click() {
    const Connection& connection = m_ui->pendingNote->connection();
    m_ui->combo->showText(portText(connection.port));
    m_ui->baudCom->showText(connection.baudRate);
    m_ui->DeviceIDCombo->showText(connection.deviceId);
    m_ui->pendingNote->hide();
    showPort();
}

void SelectComForm::noteAnswers(const DeviceSearch& search) {
    for (const Connection& device : search.answered())
        m_notes->noteReply(device, "DN", std::string(deviceNamePrefix) + device.deviceId);
    showPending();
    makeRoom();
}

void SelectComForm::showPending() {
    const Connection device = m_notes->withPending(m_lastDevice);
    m_ui->pendingNote->showNote(device, m_notes->of(device));
}

void SelectComForm::portTimer_Timer() {
    m_directory.refreshIfChanged();
    showPort();
}

void SelectComForm::boxes_Changed() {
    m_directory.forgetOpenings();
    m_lineFault = LineFault::none;
    showPort();
}

void SelectComForm::makeRoom() {
    // Qt does not make a window taller for lines that wrap.
    layout()->activate();
    const int needed = layout()->totalHeightForWidth(width());
    if (height() < needed)
        resize(width(), needed);
}

void SelectComForm::showPort() {
    const PortNumber number = portNumberFromText(m_ui->combo->currentText().toStdString());
    showPortReport(*m_ui, reportPort(examinePort(m_directory, number)),
                   {m_memory.change(number, m_directory.entry(number)),
                    std::string(lineFaultText(m_lineFault)), m_directory.listProblem()});
    makeRoom();
}

}  // namespace zlt
