#include "widgets/SideWindow.h"

#include <QEvent>
#include <QHideEvent>
#include <utility>

#include "widgets/Screen.h"

namespace zlt {

SideWindow::SideWindow(Screen* owner, std::shared_ptr<WindowPlaces> places)
    : QWidget(owner, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      m_owner(owner),
      m_places(std::move(places)) {
    if (owner)
        owner->installEventFilter(this);
}

void SideWindow::present() {
    const auto place = m_places->find(objectName());
    if (!isVisible() && place != m_places->end())
        restoreGeometry(place->second);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
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
