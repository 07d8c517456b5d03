#include "panel/forms/LinkFrame.h"

#include "ui_LinkFrame.h"
#include "widgets/WireText.h"

namespace zlt {

LinkFrame::LinkFrame(QWidget* parent) : QFrame(parent), m_ui(std::make_unique<Ui::LinkFrame>()) {
    m_ui->setupUi(this);
    addDeviceIds(*m_ui->SelectedDeviceID);
    m_ui->portRemark->hide();
}

LinkFrame::~LinkFrame() = default;

void LinkFrame::showLinkText(std::string_view text) {
    m_ui->ComStatusDisplay->setText(shownText(text));
}

void LinkFrame::showLinkState(std::string_view text, Rgb colour) {
    showLinkText(text);
    m_ui->ComStatusDisplay->setColour(QColor(colour.red, colour.green, colour.blue));
    repaint();
}

void LinkFrame::showLive(bool live) {
    m_ui->ID->setEnabled(live);
    m_ui->Version->setEnabled(live);
}

void LinkFrame::showSelectedDevice(std::string_view deviceId) {
    m_ui->SelectedDeviceID->showText(deviceId);
}

void LinkFrame::showIdentity(std::string_view id) {
    m_ui->ID->setText(shownText(id));
}

void LinkFrame::showVersion(std::string_view version) {
    m_ui->Version->setText(shownText(version));
}

void LinkFrame::showBaudRate(std::string_view baudRate) {
    m_ui->BaudText->setText(shownText(baudRate));
}

void LinkFrame::showPortRemark(std::string_view remark) {
    m_ui->portRemark->setText(fromUtf8(remark));
    m_ui->portRemark->setVisible(!remark.empty());
}

}  // namespace zlt
