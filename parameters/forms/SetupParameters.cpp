#include "parameters/forms/SetupParameters.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <algorithm>
#include <stdexcept>

#include "platform/Text.h"
#include "ui_SetupParameters.h"
#include "widgets/Fields.h"
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

/// A line that takes no room while there is nothing to say.
void showNote(QLabel& label, const QString& text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

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
    m_ui->compareGroup->hide();
    m_ui->deviceGroup->setTitle(tr("Controller %1").arg(shownText(m_transfer.deviceId())));
    applyScreenRules();
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
    handlers.onClick(*m_ui->Compare, [this](bool) { Compare_Click(); });
    handlers.onClick(*m_ui->copyCompare, [this](bool) { copyCompare_Click(); });
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
    // The lists' first entries come from no controller.
    showField(ParameterField::runCurrent, "");
    showField(ParameterField::idleCurrent, "");
    showField(ParameterField::microstep, "");
}

void SetupParameters::work(void (ParameterTransfer::*transfer)()) {
    {
        const AtWork atWork(*m_ui->activity);
        (m_transfer.*transfer)();
    }
    const bool worthComparing = isWorthComparing();
    if (worthComparing && !m_worthComparing)
        setComparing(true);
    m_worthComparing = worthComparing;
}

/// Whether the controller has something that the groups alone do not show.
bool SetupParameters::isWorthComparing() const {
    const DeviceCopy& copy = m_transfer.deviceCopy();
    return copy.pending(ParameterField::deviceId) || copy.pending(ParameterField::baudRate) ||
           std::ranges::any_of(parameterFields, [&copy](ParameterField field) {
               return copy.refusal(field).has_value();
           });
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
    m_files.save(unreadFields(m_transfer.deviceCopy()));
}

void SetupParameters::OpenParameters_Click() {
    m_files.open();
}

void SetupParameters::Compare_Click() {
    setComparing(m_ui->Compare->isChecked());
}

void SetupParameters::copyCompare_Click() {
    QGuiApplication::clipboard()->setText(m_ui->compareGrid->text());
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
    for (const ParameterField field : parameterFields) {
        ParameterControl& each = *m_controls[static_cast<std::size_t>(field)];
        try {
            values[field] = commandText(each.text());
            if (const auto reason = whyUnsendable(values[field]))
                throw std::runtime_error("The text " + *reason + ".");
        } catch (const std::runtime_error& error) {
            each.point();
            throw std::runtime_error("In the field " + inQuotes(parameterName(field)) + ": " +
                                     error.what());
        }
    }
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
        copy.isUnstored() ? tr("Not stored to flash yet: without a store the next power-up brings "
                               "back the old values.")
                          : QString());
    compareAll();
}

void SetupParameters::showOutcome(std::string_view line) {
    m_ui->outcome->setText(fromUtf8(line));
}

void SetupParameters::showOpened(const ParameterValues& values) {
    m_opened = values;
    setComparing(true);
}

void SetupParameters::compareAll() {
    const DeviceCopy& copy = m_transfer.deviceCopy();
    const ParameterValues shown = shownValues();
    const Comparison comparison(shown, copy);
    for (const ParameterField field : parameterFields)
        control(field).mark(comparison[field], reason(field, comparison[field]));
    showCounts(comparison);
    showNotes(shown);
    showTable(shown);
}

QString SetupParameters::reason(ParameterField field, Standing standing) {
    const DeviceCopy& copy = m_transfer.deviceCopy();
    switch (standing) {
        case Standing::unread:
            return tr("Not read from the controller.");
        case Standing::differs:
            return tr("Not written yet: the controller says %1.")
                .arg(control(field).inWords(*copy.word(field)));
        case Standing::refused:
            return tr("Refused: the controller answered %1.")
                .arg(fromUtf8(inQuotes(utf8FromLatin1(copy.refusal(field)->reply))));
        case Standing::same:
        case Standing::lacking:
            break;
    }
    return {};
}

void SetupParameters::showCounts(const Comparison& comparison) {
    const int differing = comparison.count(Standing::differs);
    const int refused = comparison.count(Standing::refused);
    const int unread = comparison.count(Standing::unread);
    QStringList counts;
    if (differing > 0)
        counts << (differing == 1 ? tr("1 value not written yet")
                                  : tr("%1 values not written yet").arg(differing));
    if (refused > 0)
        counts << tr("%1 refused").arg(refused);
    if (unread > 0)
        counts << tr("%1 not read").arg(unread);
    m_ui->pendingCount->setText(counts.isEmpty() ? tr("Nothing to write")
                                                 : counts.join(QStringLiteral(", ")));
}

void SetupParameters::showNotes(const ParameterValues& shown) {
    const DeviceCopy& copy = m_transfer.deviceCopy();
    const std::string& id = shown[ParameterField::deviceId];
    const std::string taken =
        m_transfer.isTaken(id) ? inQuotes(id) + " has answered on this bus already" : "";
    QStringList lines;
    for (const std::string& line :
         {pendingNote(ParameterField::deviceId, copy), deviceIdNote(id), taken})
        if (!line.empty())
            lines << fromUtf8(line);
    showNote(*m_ui->deviceIdNote, lines.join(QLatin1Char('\n')));
    showNote(*m_ui->baudNote, fromUtf8(pendingNote(ParameterField::baudRate, copy)));
}

void SetupParameters::showTable(const ParameterValues& shown) {
    if (m_ui->compareGroup->isHidden())
        return;
    const auto rows = compareTable(shown, m_transfer.deviceCopy(), m_opened);
    m_ui->compareGrid->showRows(rows);
    m_ui->compareNote->setText(rows.empty() ? tr("Nothing differs.") : tr("What differs:"));
    m_ui->copyCompare->setEnabled(!rows.empty());
}

void SetupParameters::setComparing(bool comparing) {
    const bool wasComparing = !m_ui->compareGroup->isHidden();
    m_ui->Compare->setChecked(comparing);
    m_ui->compareGroup->setVisible(comparing);
    compareAll();
    if (comparing != wasComparing)
        fitHeight();
}

void SetupParameters::fitHeight() {
    m_ui->compareGroup->updateGeometry();  // its rows have come since it was shown
    layout()->activate();
    const QRect room = screen()->availableGeometry();
    const int frame = frameGeometry().height() - height();
    resize(width(), std::min(sizeHint().height(), room.height() - frame));
    const int below = frameGeometry().bottom() - room.bottom();
    if (isVisible() && below > 0)
        move(x(), std::max(room.top(), y() - below));
}

}  // namespace zlt
