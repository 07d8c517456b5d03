#include "panel/forms/MotionFrame.h"

#include <QEvent>

#include "ui_MotionFrame.h"
#include "widgets/FieldHints.h"
#include "widgets/WireText.h"

namespace zlt {
MotionFrame::MotionFrame(QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::MotionFrame>()) {
    m_ui->setupUi(this);
}

MotionFrame::~MotionFrame() = default;

void MotionFrame::connectTo(Handlers& handlers, MotionCommands& motion, OutputCommands& outputs,
                            const std::function<MotionState()>& motionShown) {
    handlers.onClick(*m_ui->ABS, [&](bool) { motion.ABS_Click(); });
    handlers.onClick(*m_ui->Datum, [&](bool) { motion.Datum_Click(); });
    handlers.onClick(*m_ui->SSPD, [&](bool) { motion.SSPD_Click(); });
    handlers.onClick(*m_ui->Command7, [&](bool) { motion.Command7_Click(); });
    handlers.onClick(*m_ui->Command6, [&](bool) { motion.Command6_Click(); });
    handlers.onClick(*m_ui->EnableStat, [&](bool on) { outputs.EnableStat_Click(on); });
    handlers.onClick(*m_ui->Scurve, [&](bool on) { outputs.Scurve_Click(on); });
    const auto setScurve = [this, &outputs, motionShown](bool on) {
        if (outputs.setScurve(on, motionShown()))
            m_ui->Scurve->setChecked(on);
    };
    handlers.onClick(*m_ui->OnScurve, [setScurve](bool) { setScurve(true); });
    handlers.onClick(*m_ui->OffScurve, [setScurve](bool) { setScurve(false); });
}

QLineEdit& MotionFrame::field(Box box) const {
    switch (box) {
        case Box::speed:
            return *m_ui->SetSpeed;
        case Box::acceleration:
            return *m_ui->Accel;
        case Box::position:
            break;
    }
    return *m_ui->SetPosition;
}

std::string MotionFrame::typed(Box box) const {
    return field(box).text().toStdString();
}

std::string MotionFrame::typedForWire(Box box) const {
    return commandText(field(box).text());
}

void MotionFrame::fill(Box box, std::string_view text) {
    field(box).setText(shownText(text));
}

void MotionFrame::pointTo(Box box) {
    pointToField(field(box));
}

void MotionFrame::showSpeed(std::string_view speed) {
    m_ui->SetSpeed->setText(shownText(speed));
}

void MotionFrame::showAcceleration(std::string_view acceleration) {
    m_ui->Accel->setText(shownText(acceleration));
}

void MotionFrame::showDriverEnabled(bool enabled) {
    m_ui->EnableStat->showState(enabled);
}

void MotionFrame::showDemo(bool on) {
    m_ui->Command5->setChecked(on);
    // A pressed look alone can hardly be told apart in a dark palette.
    QPalette colours;
    if (on) {
        colours.setColor(QPalette::Button, palette().color(QPalette::Highlight));
        colours.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
    }
    m_ui->Command5->setPalette(colours);
}

void MotionFrame::changeEvent(QEvent* event) {
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showDemo(m_ui->Command5->isChecked());
}

void MotionFrame::showLive(bool live) {
    m_ui->EnableStat->setLive(live);
}

void MotionFrame::clearMarks() {
    m_ui->Scurve->setChecked(false);
}

void MotionFrame::gateFeatures(FirmwareVersion firmware) {
    const bool has = firmware >= firmwareWithHLHoming;
    for (QPushButton* button :
         {m_ui->HLHOMEMINUS, m_ui->HLHOMEPLUS, m_ui->LHOMEMINUS, m_ui->LHOMEPLUS}) {
        button->setEnabled(has);
        if (!has)
            addToToolTip(*button, needsFirmware(firmwareWithHLHoming, firmware));
    }
}

}  // namespace zlt
