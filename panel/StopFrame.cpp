#include "panel/StopFrame.h"

#include <QPushButton>

#include "ui_StopFrame.h"

namespace zlt {
namespace {

/// White on red, with a rim that shows the keyboard's focus.
constexpr auto stopStyle =
    "QPushButton { background-color: %1; color: white; font-weight: bold; font-size: 13pt;"
    " border: 3px solid %2; border-radius: 6px; padding: 6px 18px; }"
    "QPushButton:hover { background-color: %2; }"
    "QPushButton:focus { border-color: #ffd54f; }"
    "QPushButton:pressed { background-color: #4a0000; border-color: #4a0000; }";

void makeStop(QPushButton& button, const QString& face, const QString& rim) {
    button.setStyleSheet(QString::fromLatin1(stopStyle).arg(face, rim));
}

}  // namespace

StopFrame::StopFrame(QWidget* parent) : QFrame(parent), m_ui(std::make_unique<Ui::StopFrame>()) {
    m_ui->setupUi(this);
    makeStop(*m_ui->RSTOP, QStringLiteral("#c62828"), QStringLiteral("#8e0000"));
    makeStop(*m_ui->ISTOP, QStringLiteral("#c62828"), QStringLiteral("#8e0000"));
}

StopFrame::~StopFrame() = default;

bool StopFrame::stopHeldDown() const {
    return m_ui->RSTOP->isDown() || m_ui->ISTOP->isDown();
}

}  // namespace zlt
