#include "programs/forms/RunControlFrame.h"

#include "ui_RunControlFrame.h"
#include "widgets/FieldHints.h"

namespace zlt {

RunControlFrame::RunControlFrame(QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::RunControlFrame>()) {
    m_ui->setupUi(this);
}

RunControlFrame::~RunControlFrame() = default;

void RunControlFrame::connectTo(Handlers& handlers, RunControl& control,
                                const std::function<void()>& openThreads) {
    handlers.onClick(*m_ui->XThread, [openThreads](bool) { openThreads(); });
    handlers.onClick(*m_ui->RunProg, [&](bool) { control.RunProg_Click(); });
    handlers.onClick(*m_ui->StopProg, [&](bool) { control.StopProg_Click(); });
    handlers.onClick(*m_ui->PauseProg, [&](bool) { control.PauseProg_Click(); });
    handlers.onClick(*m_ui->ContProg, [&](bool) { control.ContProg_Click(); });
    handlers.onClick(*m_ui->RunOnBootOn, [&](bool) { runOnBoot_Click(control, true); });
    handlers.onClick(*m_ui->RunOnBootOff, [&](bool) { runOnBoot_Click(control, false); });
}

void RunControlFrame::runOnBoot_Click(RunControl& control, bool on) {
    showRunOnBoot(m_runOnBoot);  // the click's own mark says nothing yet
    if (const auto said = control.setRunOnBoot(on))
        m_runOnBoot = said;
    showRunOnBoot(m_runOnBoot);
}

void RunControlFrame::forgetRunOnBoot() {
    m_runOnBoot.reset();
    showRunOnBoot(m_runOnBoot);
}

void RunControlFrame::showRunOnBoot(std::optional<bool> on) {
    m_ui->RunOnBootOn->setChecked(on == true);
    m_ui->RunOnBootOff->setChecked(on == false);
}

void RunControlFrame::gateFeatures(FirmwareVersion firmware) {
    const bool has = firmware >= firmwareWithSecondThread;
    m_ui->XThread->setEnabled(has);
    if (!has)
        addToToolTip(*m_ui->XThread, needsFirmware(firmwareWithSecondThread, firmware));
}

}  // namespace zlt
