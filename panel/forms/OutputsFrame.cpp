#include "panel/forms/OutputsFrame.h"

#include "ui_OutputsFrame.h"
#include "widgets/Fields.h"
#include "widgets/WireText.h"

namespace zlt {

OutputsFrame::OutputsFrame(Handlers& handlers, OutputCommands& outputs, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::OutputsFrame>()) {
    m_ui->setupUi(this);
    handlers.onClick(*m_ui->DOSet1, [&](bool) { outputs.toggleDigitalOutput(1); });
    handlers.onClick(*m_ui->DOSet2, [&](bool) { outputs.toggleDigitalOutput(2); });
    handlers.onClick(*m_ui->DOSet3, [&](bool) { outputs.toggleDigitalOutput(3); });
    handlers.onClick(*m_ui->d1, [&, this](bool) { outputs.toggleOutput(m_ui->InPosDO->lit()); });
    handlers.onClick(*m_ui->EnableLatch,
                     [&, this](bool) { m_ui->EnableLatch->setChecked(outputs.toggleLatch()); });
    handlers.onClick(*m_ui->SyncEnable, [&, this](bool on) { switchSync(outputs, on); });
}

OutputsFrame::~OutputsFrame() = default;

SyncFields OutputsFrame::syncFields() const {
    SyncFields fields{std::nullopt, toUtf8(m_ui->SyncPos->text())};
    if (m_ui->SyncEqual->isChecked())
        fields.condition = SyncCondition::equal;
    else if (m_ui->SyncLessThan->isChecked())
        fields.condition = SyncCondition::lessThan;
    else if (m_ui->SyncGreaterThan->isChecked())
        fields.condition = SyncCondition::greaterThan;
    return fields;
}

void OutputsFrame::switchSync(OutputCommands& outputs, bool on) {
    try {
        outputs.switchSync(on, syncFields());
    } catch (const BadField&) {
        m_ui->SyncEnable->setChecked(false);
        pointToField(*m_ui->SyncPos);
        throw;
    }
}

void OutputsFrame::showState(const PanelState& state) {
    m_ui->InPosDO->setLive(state.live);
}

void OutputsFrame::showReading(const AxisReading& reading) {
    if (reading.program && reading.program->output)
        m_ui->InPosDO->setLit(*reading.program->output);
}

void OutputsFrame::resetSync() {
    m_ui->SyncEqual->setChecked(true);
    m_ui->SyncPos->setText(QStringLiteral("0"));
}

void OutputsFrame::forgetProgram() {
    m_ui->InPosDO->setLit(false);
}

void OutputsFrame::clearMarks() {
    m_ui->SyncEnable->setChecked(false);
    m_ui->EnableLatch->setChecked(false);
}

}  // namespace zlt
