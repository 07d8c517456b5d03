#include "panel/forms/OutputsFrame.h"

#include "ui_OutputsFrame.h"
#include "widgets/FieldHints.h"

namespace zlt {

OutputsFrame::OutputsFrame(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::OutputsFrame>()) {
    m_ui->setupUi(this);
}

OutputsFrame::~OutputsFrame() = default;

void OutputsFrame::connectTo(Handlers& handlers, OutputCommands& outputs) {
    handlers.onClick(*m_ui->DOSet1, [&](bool) { outputs.DOSet_Click(1); });
    handlers.onClick(*m_ui->DOSet2, [&](bool) { outputs.DOSet_Click(2); });
    handlers.onClick(*m_ui->DOSet3, [&](bool) { outputs.DOSet_Click(3); });
    handlers.onClick(*m_ui->d1, [&](bool) { outputs.d1_Click(); });
    handlers.onClick(*m_ui->EnableLatch, [&](bool) { outputs.EnableLatch_Click(); });
    handlers.onClick(*m_ui->SyncEnable, [&](bool on) { outputs.SyncEnable_Click(on); });
}

std::optional<SyncCondition> OutputsFrame::syncCondition() const {
    if (m_ui->SyncEqual->isChecked())
        return SyncCondition::equal;
    if (m_ui->SyncLessThan->isChecked())
        return SyncCondition::lessThan;
    if (m_ui->SyncGreaterThan->isChecked())
        return SyncCondition::greaterThan;
    return std::nullopt;
}

std::string OutputsFrame::syncPosition() const {
    return m_ui->SyncPos->text().toStdString();
}

void OutputsFrame::pointToSyncPosition() {
    pointToField(*m_ui->SyncPos);
}

void OutputsFrame::markSyncEnabled(bool enabled) {
    m_ui->SyncEnable->setChecked(enabled);
}

void OutputsFrame::markLatch(bool on) {
    m_ui->EnableLatch->setChecked(on);
}

bool OutputsFrame::outputShown() const {
    return m_ui->InPosDO->lit();
}

void OutputsFrame::showOutput(bool on) {
    m_ui->InPosDO->setLit(on);
}

void OutputsFrame::resetSync() {
    m_ui->SyncEqual->setChecked(true);
    m_ui->SyncPos->setText(QStringLiteral("0"));
}

void OutputsFrame::clearMarks() {
    markSyncEnabled(false);
    markLatch(false);
}

void OutputsFrame::showLive(bool live) {
    m_ui->InPosDO->setLive(live);
}

}  // namespace zlt
