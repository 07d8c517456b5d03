#include "parameters/forms/SetupParameters.h"

#include "ui_SetupParameters.h"
#include "widgets/FirmwareHint.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

/// While a transfer runs; the screen says meanwhile what it is at.
class AtWork {
 public:
    explicit AtWork(QLabel& activity) : m_activity(activity) {}
    ~AtWork() { m_activity.clear(); }
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;

 private:
    QLabel& m_activity;
    BusyCursor m_busy;
};

}  // namespace

SetupParameters::SetupParameters(const Services& world, const LinkHandOver& handOver,
                                 QWidget* parent)
    : LinkedScreen(world, parent),
      m_ui(std::make_unique<Ui::SetupParameters>()),
      m_transfer(services(), handOver, *this),
      m_files(services(), *this) {
    m_ui->setupUi(this);
    for (const ParameterField field : parameterFields)
        m_controls.push_back(makeControl(field, *m_ui));
    teachManners();
    connectHandlers();
    SetupParameters::showDeviceCopy(m_transfer.deviceCopy());
}

SetupParameters::~SetupParameters() = default;

void SetupParameters::connectHandlers() {
    handlers.onClick(*m_ui->UploadPar, [this](bool) { UploadPar_Click(); });
    handlers.onClick(*m_ui->DownloadPar, [this](bool) { DownloadPar_Click(); });
    handlers.onClick(*m_ui->SaveParameters, [this](bool) { SaveParameters_Click(); });
    handlers.onClick(*m_ui->OpenParameters, [this](bool) { OpenParameters_Click(); });
    handlers.onClick(*m_ui->SetSN, [this](bool) { SetSN_Click(); });
    handlers.onClick(*m_ui->Close, [this](bool) { Close_Click(); });
    connectAbort(*m_ui->stopBox, m_transfer.deviceId(), [this] { m_transfer.abortMotion(); });
    // Marks only follow what stands on the screen, also while a transfer changes it.
    for (const auto& each : m_controls)
        each->onChange([this] { compareAll(); });
}

void SetupParameters::Form_Load() {
    handlers.runWithinCaller([this] {
        m_transfer.openPort();
        fillBoxes();
        work(&ParameterTransfer::upload);
    });
}

void SetupParameters::fillBoxes() {
    addDeviceIds(*m_ui->DeviceIDCombo);
    addBaudRates(*m_ui->baudCombo);
    for (int current = 100; current <= 1500; current += 100) {
        m_ui->RunCurrentSelect->addItem(QString::number(current));
        m_ui->IdleCurrentSelect->addItem(QString::number(current));
    }
    for (const char* steps : {"1", "2", "4", "16"})  // deliberately no 8
        m_ui->Microstep->addItem(QLatin1String(steps));
    showField(ParameterField::deviceId, "01");
    showField(ParameterField::baudRate, "9600");
    // The lists' first entries are nobody's word.
    showField(ParameterField::runCurrent, "");
    showField(ParameterField::idleCurrent, "");
    showField(ParameterField::microstep, "");
}

void SetupParameters::work(void (ParameterTransfer::*transfer)()) {
    const AtWork atWork(*m_ui->activity);
    (m_transfer.*transfer)();
}

void SetupParameters::UploadPar_Click() {
    work(&ParameterTransfer::upload);
}

void SetupParameters::DownloadPar_Click() {
    work(&ParameterTransfer::download);
}

void SetupParameters::SetSN_Click() {
    work(&ParameterTransfer::storeToFlash);
}

void SetupParameters::SaveParameters_Click() {
    m_files.save();
}

void SetupParameters::OpenParameters_Click() {
    m_files.open();
}

void SetupParameters::Close_Click() {
    m_transfer.closePort();
    done(Accepted);
}

// The rules' view of the screen

ParameterControl& SetupParameters::control(ParameterField field) {
    return *m_controls[static_cast<std::size_t>(field)];
}

ParameterValues SetupParameters::values() const {
    ParameterValues values;
    for (const ParameterField field : parameterFields)
        values[field] = commandText(m_controls[static_cast<std::size_t>(field)]->text());
    return values;
}

ParameterValues SetupParameters::shownValues() const {
    ParameterValues values;
    for (const ParameterField field : parameterFields)
        values[field] = m_controls[static_cast<std::size_t>(field)]->text().toStdString();
    return values;
}

void SetupParameters::showField(ParameterField field, const std::string& text) {
    control(field).show(text);
    compareAll();  // a box that is shown a text does not report it
}

void SetupParameters::disable(ParameterField field) {
    QString reason = needsFirmware(parameterRow(field).readFrom, m_transfer.firmware());
    if (m_transfer.firmware() >= parameterRow(field).writtenFrom)
        reason += tr("  Down writes it all the same.");
    control(field).disable(reason);
}

void SetupParameters::showActivity(Activity activity) {
    const auto text = [activity] {
        switch (activity) {
            case Activity::reading:
                return tr("Reading from the controller...");
            case Activity::writing:
                return tr("Writing to the controller...");
            case Activity::storing:
                return tr("Storing to flash...");
            case Activity::none:
                break;
        }
        return QString();
    };
    m_ui->activity->setText(text());
    // Nothing is drawn while an exchange blocks, a question's box that was there included.
    repaint();
}

void SetupParameters::showDeviceCopy(const DeviceCopy& copy) {
    m_ui->storeNote->setText(
        copy.unstored ? tr("Written values are not stored to flash yet: the next power-up brings "
                           "back the old ones.")
                      : QString());
    compareAll();
}

void SetupParameters::compareAll() {
    const DeviceCopy& copy = m_transfer.deviceCopy();
    const Comparison comparison(shownValues(), copy, m_transfer.firmware());
    for (const ParameterField field : parameterFields) {
        const Standing standing = comparison[field];
        QString reason;
        if (standing == Standing::unread)
            reason = tr("Not read from the controller.");
        else if (standing == Standing::differs)
            reason = tr("Not written yet: the controller says %1.")
                         .arg(control(field).inWords(*copy.word(field)));
        control(field).mark(standing, reason);
    }
    const int differing = comparison.count(Standing::differs);
    const int unread = comparison.count(Standing::unread);
    QStringList counts;
    if (differing > 0)
        counts << (differing == 1 ? tr("1 value not written yet")
                                  : tr("%1 values not written yet").arg(differing));
    if (unread > 0)
        counts << tr("%1 not read").arg(unread);
    m_ui->pendingCount->setText(counts.isEmpty() ? tr("Nothing to write")
                                                 : counts.join(QStringLiteral(", ")));
}

}  // namespace zlt
