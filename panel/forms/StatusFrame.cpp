#include "panel/forms/StatusFrame.h"

#include "ui_StatusFrame.h"

namespace zlt {

StatusFrame::StatusFrame(Handlers& handlers, MotionCommands& motion, QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::StatusFrame>()) {
    m_ui->setupUi(this);
    handlers.onClick(*m_ui->clear, [&](bool) { motion.send("CLR"); });
}

StatusFrame::~StatusFrame() = default;

void StatusFrame::showState(const PanelState& state) {
    for (ReadOut* value : findChildren<ReadOut*>())
        value->setLive(state.live);
    for (Lamp* lamp : findChildren<Lamp*>())
        lamp->setLive(state.live);
}

void StatusFrame::showReading(const AxisReading& reading) {
    m_ui->Current->showReply(reading.current);
    m_ui->Pos->showReply(reading.position);
    m_ui->EncPos->showReply(reading.encoder);
    const auto error = followingError(reading);
    m_ui->FollowingError->showReply(error ? std::to_string(*error) : std::string());
    if (reading.status)
        showStatus(*reading.status);
    if (reading.program)
        showProgram(*reading.program);
}

void StatusFrame::showStatus(const StatusWord& status) {
    m_ui->Stat->showState(shownState(status.motion()));
    m_ui->NegLim->setLit(status.negativeLimit());
    m_ui->PosLim->setLit(status.positiveLimit());
    m_ui->Home->setLit(status.home());
}

void StatusFrame::showProgram(const AxisReading::Program& program) {
    if (program.incremental)
        m_ui->MoveMode->showReply(*program.incremental ? "INC" : "ABS");
    if (program.line)
        m_ui->ProgIndex->showReply(std::to_string(*program.line));
    if (program.state)
        m_ui->ProgStatus->showState(shownState(*program.state));
}

void StatusFrame::forgetProgram() {
    m_ui->MoveMode->showReply("");
    m_ui->ProgIndex->showReply("");
    m_ui->ProgStatus->showState({});
}

}  // namespace zlt
