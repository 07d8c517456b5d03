#include "panel/forms/MotionFrame.h"

#include <QEvent>
#include <utility>

#include "ui_MotionFrame.h"
#include "widgets/Fields.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

void fill(QLineEdit& field, std::string_view utf8) {
    if (toUtf8(field.text()) != utf8)
        field.setText(fromUtf8(utf8));
}

}  // namespace

MotionFrame::MotionFrame(Handlers& handlers, PanelSession& session, MotionCommands& motion,
                         OutputCommands& outputs, QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::MotionFrame>()) {
    m_ui->setupUi(this);
    connectMotion(handlers, motion);
    connectOutputs(handlers, session, outputs);
    handlers.onClick(*m_ui->Command5, [&](bool) { session.toggleDemo(); });
}

MotionFrame::~MotionFrame() = default;

// Clicks

std::array<MotionFrame::CommandButton, 11> MotionFrame::motionButtons() const {
    return {{{m_ui->JOGP, "J+"},
             {m_ui->JOGN, "J-"},
             {m_ui->HOMEP, "H+"},
             {m_ui->HOMEN, "H-"},
             {m_ui->ZHOMEPLUS, "ZH+"},
             {m_ui->ZHOMEMINUS, "ZH-"},
             {m_ui->Command4, "Z+"},
             {m_ui->Command3, "Z-"},
             {m_ui->ResetPos, "PX=0"},
             {m_ui->ResetEnc, "EX=0"},
             {m_ui->ResetEncoder, "EX=0"}}};
}

std::array<MotionFrame::CommandButton, 4> MotionFrame::hlHomingButtons() const {
    return {{{m_ui->HLHOMEPLUS, "HL+"},
             {m_ui->HLHOMEMINUS, "HL-"},
             {m_ui->LHOMEPLUS, "L+"},
             {m_ui->LHOMEMINUS, "L-"}}};
}

std::array<MotionFrame::CommandButton, 2> MotionFrame::plainButtons() const {
    return {{{m_ui->ABSMode, "ABS"}, {m_ui->INCMode, "INC"}}};
}

void MotionFrame::connectMotion(Handlers& handlers, MotionCommands& motion) {
    const auto onClick = [&, this](QAbstractButton& button,
                                   const std::function<void(MotionFields&)>& command) {
        handlers.onClick(button, [this, command](bool) { withFields(command); });
    };
    for (const auto& [button, command] : motionButtons())
        onClick(*button, [&motion, command = command](MotionFields& fields) {
            motion.SendMotionCommand(fields, command);
        });
    for (const auto& [button, command] : hlHomingButtons())
        onClick(*button, [&motion, command = command](MotionFields& fields) {
            motion.sendHLHoming(fields, command);
        });
    for (const auto& [button, command] : plainButtons())
        handlers.onClick(*button, [&motion, command = command](bool) { motion.send(command); });
    onClick(*m_ui->ABS, [&](MotionFields& fields) { motion.move(fields); });
    onClick(*m_ui->Datum, [&](MotionFields& fields) { motion.moveToZero(fields); });
    onClick(*m_ui->SSPD, [&](MotionFields& fields) { motion.changeSpeed(fields); });
    onClick(*m_ui->Command7, [&](MotionFields& fields) { motion.setPosition(fields); });
    onClick(*m_ui->Command6, [&](MotionFields& fields) { motion.setEncoder(fields); });
}

void MotionFrame::connectOutputs(Handlers& handlers, PanelSession& session,
                                 OutputCommands& outputs) {
    handlers.onClick(*m_ui->EnableStat, [&](bool on) { outputs.askAndSwitchDriver(on); });
    handlers.onClick(*m_ui->EnableOn, [&](bool) { outputs.switchDriver(true); });
    handlers.onClick(*m_ui->EnableOff, [&](bool) { outputs.switchDriver(false); });
    handlers.onClick(*m_ui->Scurve, [&](bool on) { outputs.sendScurve(on); });
    const auto setScurve = [this, &session, &outputs](bool on) {
        if (outputs.setScurve(on, session.motion()))
            m_ui->Scurve->setChecked(on);
    };
    handlers.onClick(*m_ui->OnScurve, [setScurve](bool) { setScurve(true); });
    handlers.onClick(*m_ui->OffScurve, [setScurve](bool) { setScurve(false); });
}

QLineEdit& MotionFrame::field(PanelField box) const {
    switch (box) {
        case PanelField::speed:
            return *m_ui->SetSpeed;
        case PanelField::acceleration:
            return *m_ui->Accel;
        default:
            return *m_ui->SetPosition;
    }
}

void MotionFrame::withFields(const std::function<void(MotionFields&)>& command) {
    MotionFields fields{toUtf8(m_ui->SetSpeed->text()), toUtf8(m_ui->Accel->text()),
                        toUtf8(m_ui->SetPosition->text())};
    const auto show = [&] {
        fill(*m_ui->SetSpeed, fields.speed);
        fill(*m_ui->Accel, fields.acceleration);
        fill(*m_ui->SetPosition, fields.position);
    };
    try {
        command(fields);
    } catch (const BadField& bad) {
        show();
        pointToField(field(bad.field()));
        throw;
    }
    show();
}

void MotionFrame::focusSpeed() {
    m_ui->SetSpeed->setFocus();
}

// What the rules show

void MotionFrame::fillSettings(std::string_view speed, std::string_view acceleration) {
    m_ui->SetSpeed->setText(shownText(speed));
    m_ui->Accel->setText(shownText(acceleration));
}

void MotionFrame::showReading(const AxisReading& reading) {
    if (reading.driverEnabled)
        m_ui->EnableStat->showState(*reading.driverEnabled);
}

void MotionFrame::showState(const PanelState& state) {
    m_ui->EnableStat->setLive(state.live);
    m_ui->Command5->setChecked(state.demo);  // a click has turned it already
    if (std::exchange(m_demoShown, state.demo) != state.demo)
        colourDemo();
    if (state.loadedFirmware)
        gateFeatures(*state.loadedFirmware);
}

/// A pressed look alone can hardly be told apart in a dark palette.
void MotionFrame::colourDemo() {
    QPalette colours;
    if (m_demoShown) {
        colours.setColor(QPalette::Button, palette().color(QPalette::Highlight));
        colours.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
    }
    m_ui->Command5->setPalette(colours);
}

void MotionFrame::changeEvent(QEvent* event) {
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colourDemo();
}

void MotionFrame::clearMarks() {
    m_ui->Scurve->setChecked(false);
}

void MotionFrame::gateFeatures(FirmwareVersion firmware) {
    const bool has = firmware >= firmwareWithHLHoming;
    for (const auto& [button, command] : hlHomingButtons()) {
        button->setEnabled(has);
        if (!has)
            addToToolTip(*button, needsFirmware(firmwareWithHLHoming, firmware));
    }
}

}  // namespace zlt
