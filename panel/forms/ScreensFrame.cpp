#include "panel/forms/ScreensFrame.h"

#include <QToolTip>
#include <utility>

#include "ui_ScreensFrame.h"
#include "widgets/WireText.h"

namespace zlt {

ScreensFrame::ScreensFrame(Handlers& handlers, Actions actions, QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::ScreensFrame>()) {
    m_ui->setupUi(this);
    const auto onClick = [&](QAbstractButton& button, std::function<void()>& action) {
        handlers.onClick(button, [action = std::move(action)](bool) { action(); });
    };
    onClick(*m_ui->Setup, actions.setup);
    onClick(*m_ui->ManualTerminal, actions.terminal);
    onClick(*m_ui->Variable, actions.variables);
    onClick(*m_ui->Trend, actions.trend);
    onClick(*m_ui->Bus, actions.bus);
    handlers.onClick(*m_ui->CopyState, [this, copy = std::move(actions.copyState)](bool) {
        copy();
        QToolTip::showText(m_ui->CopyState->mapToGlobal(QPoint(0, m_ui->CopyState->height())),
                           tr("The state is on the clipboard: paste it into a mail or a file."),
                           m_ui->CopyState);
    });
}

ScreensFrame::~ScreensFrame() = default;

void ScreensFrame::showDeviceNote(const DeviceNote& note) {
    const std::string pending = pendingText(note);
    m_ui->notStored->setHidden(note.unstored.empty());
    m_ui->pendingNote->setHidden(pending.empty());
    m_ui->pendingNote->setText(tr("from the next power-up: %1").arg(shownText(pending)));
}

}  // namespace zlt
