#include "app/PendingNote.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "widgets/WireText.h"

namespace zlt {

PendingNote::PendingNote(QWidget* parent)
    : QFrame(parent), m_text(new QLabel(this)), m_button(new QPushButton(tr("Fill in"), this)) {
    setFrameShape(StyledPanel);
    m_text->setObjectName(QStringLiteral("pendingText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setAccessibleName(tr("From the next power-up"));
    m_button->setObjectName(QStringLiteral("usePending"));
    m_button->setAccessibleName(tr("Fill in what holds from the next power-up"));
    m_button->setToolTip(
        tr("Puts them into the boxes above, for when the controller has been powered up again."));
    auto* row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    setFocusProxy(m_button);
    hide();
}

void PendingNote::showNote(const Connection& device, const DeviceNote& note) {
    m_connection = {device.port, note.pendingBaudRate.value_or(device.baudRate),
                    note.pendingId.value_or(device.deviceId)};
    m_text->setText(tr("Device %1 on %2, from the next power-up: %3")
                        .arg(shownText(device.deviceId), shownText(portText(device.port)),
                             shownText(pendingText(note))));
    setVisible(note.isPending());
}

}  // namespace zlt
