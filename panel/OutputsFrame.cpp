#include "panel/OutputsFrame.h"

#include "ui_OutputsFrame.h"

namespace zlt {

OutputsFrame::OutputsFrame(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::OutputsFrame>()) {
    m_ui->setupUi(this);
}

OutputsFrame::~OutputsFrame() = default;

void OutputsFrame::showOutput(bool on) {
    m_ui->InPosDO->setLit(on);
}

void OutputsFrame::resetSync() {
    m_ui->SyncEqual->setChecked(true);
    m_ui->SyncPos->setText(QStringLiteral("0"));
}

void OutputsFrame::showLive(bool live) {
    m_ui->InPosDO->setLive(live);
}

}  // namespace zlt
