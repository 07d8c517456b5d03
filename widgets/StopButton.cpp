#include "widgets/StopButton.h"

#include <QLabel>
#include <QVBoxLayout>

#include "widgets/WireText.h"

namespace zlt {
namespace {

/// White on red, with a rim that shows the keyboard's focus.
constexpr auto stopStyle =
    "QPushButton { background-color: #c62828; color: white; font-weight: bold; font-size: 13pt;"
    " border: 3px solid #8e0000; border-radius: 6px; padding: 4px 18px; }"
    "QPushButton:hover { background-color: #8e0000; }"
    "QPushButton:focus { border-color: #ffd54f; }"
    "QPushButton:pressed { background-color: #4a0000; border-color: #4a0000; }";

}  // namespace

StopButton::StopButton(QWidget* parent) : QPushButton(parent) {
    setStyleSheet(QString::fromLatin1(stopStyle));
}

StopBox::StopBox(QWidget* parent) : QGroupBox(parent), m_stop(new StopButton(this)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_stop->setObjectName(QStringLiteral("ISTOP"));
    m_stop->setText(QStringLiteral("ISTOP"));
    setFocusProxy(m_stop);  // the box takes its place in the order of the keys
    m_stop->setAccessibleName(tr("Stop at once"));
    m_stop->setToolTip(tr("Stops the axis at once, without slowing down (ABORT).  Key F12."));
    auto* key = new QLabel(tr("at once \u2013 F12"), this);
    key->setAlignment(Qt::AlignCenter);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(8, 4, 8, 4);
    rows->setSpacing(2);
    rows->addWidget(m_stop);
    rows->addWidget(key);
}

void StopBox::showDevice(std::string_view deviceId) {
    setTitle(stopTitle(deviceId));
}

QString stopTitle(std::string_view deviceId) {
    return StopBox::tr("Device %1").arg(shownText(deviceId));
}

}  // namespace zlt
