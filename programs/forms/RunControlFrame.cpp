#include "programs/forms/RunControlFrame.h"

#include <utility>

#include "ui_RunControlFrame.h"
#include "widgets/Fields.h"

namespace zlt {

RunControlFrame::RunControlFrame(Handlers& handlers, PanelLink& link,
                                 std::function<void(std::string_view)> sendMotionCommand,
                                 const std::function<void()>& openThreads, QWidget* parent)
    : QGroupBox(parent),
      m_ui(std::make_unique<Ui::RunControlFrame>()),
      m_control(link, std::move(sendMotionCommand)) {
    m_ui->setupUi(this);
    handlers.onClick(*m_ui->XThread, [openThreads](bool) { openThreads(); });
    handlers.onClick(*m_ui->RunProg, [this](bool) { m_control.run(); });
    handlers.onClick(*m_ui->StopProg, [this](bool) { m_control.stop(); });
    handlers.onClick(*m_ui->PauseProg, [this](bool) { m_control.pause(); });
    handlers.onClick(*m_ui->ContProg, [this](bool) { m_control.resume(); });
    handlers.onClick(*m_ui->RunOnBootOn, [this](bool) { runOnBoot_Click(true); });
    handlers.onClick(*m_ui->RunOnBootOff, [this](bool) { runOnBoot_Click(false); });
}

RunControlFrame::~RunControlFrame() = default;

void RunControlFrame::runOnBoot_Click(bool on) {
    showRunOnBoot(m_runOnBoot);  // the click's own mark says nothing yet
    if (const auto said = m_control.setRunOnBoot(on))
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
