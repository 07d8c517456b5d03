#include "panel/forms/StopFrame.h"

#include "ui_StopFrame.h"

namespace zlt {

StopFrame::StopFrame(QWidget* parent) : QGroupBox(parent), m_ui(std::make_unique<Ui::StopFrame>()) {
    m_ui->setupUi(this);
}

StopFrame::~StopFrame() = default;

void StopFrame::showDevice(std::string_view deviceId) {
    setTitle(stopTitle(deviceId));
}

}  // namespace zlt
