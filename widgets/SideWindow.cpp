#include "widgets/SideWindow.h"

#include <QEvent>
#include <QHideEvent>
#include <utility>

#include "widgets/Screen.h"

namespace zlt {

// A desktop keeps a dialog above the window that it belongs to: a press on the panel, which may
// fill the screen, must not bury it.
SideWindow::SideWindow(Screen* owner, std::shared_ptr<WindowPlaces> places)
    : QWidget(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      m_owner(owner),
      m_places(std::move(places)) {
    if (owner)
        owner->installEventFilter(this);
}

void SideWindow::present() {
    if (!isVisible())
        place();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SideWindow::place() {
    const auto known = m_places->find(objectName());
    if (known != m_places->end()) {
        restoreGeometry(known->second);
    } else if (m_owner) {
        // In the screen's lower right corner: its stops stand at the top.
        resize(sizeHint());
        move(m_owner->geometry().bottomRight() - QPoint(width(), height()));
    }
}

bool SideWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_owner && event->type() == QEvent::Hide && !event->spontaneous())
        hide();
    return QWidget::eventFilter(watched, event);
}

void SideWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (event->spontaneous())
        return;
    (*m_places)[objectName()] = saveGeometry();
    if (m_owner)
        m_owner->sideWindowClosed();
}

}  // namespace zlt
