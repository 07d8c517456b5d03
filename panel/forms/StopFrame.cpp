#include "panel/forms/StopFrame.h"

#include "ui_StopFrame.h"

namespace zlt {

StopFrame::StopFrame(QWidget* parent) : QGroupBox(parent), m_ui(std::make_unique<Ui::StopFrame>()) {
    m_ui->setupUi(this);
}

StopFrame::~StopFrame() = default;

StopButton& StopFrame::stop() const {
    return *m_ui->RSTOP;
}

StopButton& StopFrame::abort() const {
    return *m_ui->ISTOP;
}

void StopFrame::showState(const PanelState& state) {
    setTitle(stopTitle(state.device));
}

}  // namespace zlt
