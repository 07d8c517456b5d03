#include "widgets/SideScreen.h"

#include <QApplication>
#include <QHideEvent>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace zlt {

SideScreen::SideScreen(const Services& world, QWidget& owner, std::shared_ptr<WindowPlaces> places)
    : Screen(world, &owner), m_places(std::move(places)) {}

void SideScreen::showBeside() {
    if (!isVisible()) {
        const auto known = m_places->find(objectName());
        if (known == m_places->end() || !restoreGeometry(known->second))
            takePlace();
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    standOverTopScreen();
}

/// Right of the owner or below it, there lower if need be; else in the far corner of the desktop.
void SideScreen::takePlace() {
    constexpr int gap = 8;
    const QRect desktop = parentWidget()->screen()->availableGeometry();
    const QRect owner = parentWidget()->frameGeometry();
    const QSize frame = owner.size() - parentWidget()->size();  // this one's will be the same
    const QSize wanted = size() + frame;
    const int below = desktop.bottom() - owner.bottom() - gap;
    const int lowest = minimumSizeHint().height() + frame.height();
    if (owner.right() + gap + wanted.width() <= desktop.right()) {
        move(owner.right() + gap, owner.top());
    } else if (below >= lowest) {
        resize(width(), std::min(height(), below - frame.height()));
        move(std::min(owner.left(), desktop.right() - wanted.width()), owner.bottom() + gap);
    } else {
        move(std::max(desktop.left(), desktop.right() - wanted.width()),
             std::max(desktop.top(), desktop.bottom() - wanted.height()));
    }
}

void SideScreen::hideEvent(QHideEvent* event) {
    Screen::hideEvent(event);
    if (event->spontaneous())
        return;
    (*m_places)[objectName()] = saveGeometry();
    if (auto* below = qobject_cast<Screen*>(standsOver()))
        below->sideScreenClosed();
}

bool SideScreen::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked)
        standOverLater();
    return Screen::event(event);
}

bool SideScreen::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_over && event->type() == QEvent::Hide)
        standOverLater();
    if (watched == parentWidget() && event->type() == QEvent::Hide && !event->spontaneous())
        hide();
    return Screen::eventFilter(watched, event);
}

/// The list of modal windows is being changed as this is told.
void SideScreen::standOverLater() {
    QTimer::singleShot(0, this, [this] { standOverTopScreen(); });
}

void SideScreen::standOverTopScreen() {
    QWidget* modal = QApplication::activeModalWidget();
    const bool box = modal && !qobject_cast<Screen*>(modal);
    if (box || m_ownDialog || !isVisible())
        return;
    QWidget* over = modal ? modal : parentWidget();
    m_over = over == parentWidget() ? nullptr : over;
    if (windowHandle() && over->windowHandle() &&
        windowHandle()->transientParent() != over->windowHandle())
        windowHandle()->setTransientParent(over->windowHandle());
}

SideScreen::OwnDialog::~OwnDialog() {
    m_screen.m_ownDialog = false;
    m_screen.standOverLater();
}

void SideScreen::leave() {
    Screen::leave();
    // What shows the screen below passes the end on.
    if (auto* below = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        below->reject();
}

}  // namespace zlt
