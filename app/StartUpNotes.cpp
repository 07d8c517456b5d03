#include "app/StartUpNotes.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include "ui_SelectComForm.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

void showLine(QLabel& line, const std::string& text) {
    const QString shown = fromUtf8(text);
    if (line.text() != shown)
        line.setText(shown);
    line.setVisible(!shown.isEmpty());
}

/// A sign and not only words tells a port in order from one that is not.
void showSign(QLabel& sign, bool inTrouble) {
    const QString state = inTrouble ? QObject::tr("needs a look") : QObject::tr("in order");
    if (sign.accessibleDescription() == state)
        return;
    sign.setAccessibleDescription(state);
    const auto icon = inTrouble ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    const int side = sign.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &sign);
    sign.setPixmap(sign.style()->standardIcon(icon).pixmap(side, side));
}

}  // namespace

void showPortReport(Ui::SelectComForm& ui, const PortReport& report,
                    std::initializer_list<std::string> remarks) {
    const bool nothingThere = report.obstacle == Obstacle::nothingThere;
    showLine(*ui.portDevice, nothingThere
                                 ? std::string()
                                 : ui.combo->currentText().toStdString() + " is " + report.device);
    showLine(*ui.portProblem, report.problem);
    const QString command = fromUtf8(report.command);
    if (ui.portCommand->text() != command) {
        ui.portCommand->setText(command);
        ui.portCommand->setCursorPosition(0);
    }
    ui.portCommandRow->setVisible(!command.isEmpty());
    std::string lines;
    for (const std::string& remark : remarks)
        if (!remark.empty())
            lines += (lines.empty() ? "" : "\n") + remark;
    showLine(*ui.portRemarks, lines);
    showSign(*ui.portSign, !report.problem.empty() || !lines.empty());
}

PendingNote::PendingNote(QWidget* parent)
    : QFrame(parent), m_text(new QLabel(this)), m_button(new QPushButton(tr("Fill in"), this)) {
    setFrameShape(StyledPanel);
    m_text->setObjectName(QStringLiteral("pendingText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setAccessibleName(tr("From the next power-up"));
    m_button->setObjectName(QStringLiteral("usePending"));
    m_button->setAccessibleName(tr("Fill in what holds from the next power-up"));
    m_button->setToolTip(
        tr("Puts them into the boxes above, for when the controller has been powered up again."));
    auto* row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    setFocusProxy(m_button);
    hide();
}

void PendingNote::showNote(const Connection& device, const DeviceNote& note) {
    m_connection = {device.port, note.pendingBaudRate.value_or(device.baudRate),
                    note.pendingId.value_or(device.deviceId)};
    m_text->setText(tr("Device %1 on %2, from the next power-up: %3%4")
                        .arg(shownText(device.deviceId), shownText(portText(device.port)),
                             shownText(pendingText(note)),
                             note.unstored.empty() ? QString() : tr(" (not stored to flash)")));
    setVisible(note.isPending());
}

}  // namespace zlt
