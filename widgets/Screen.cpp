#include "widgets/Screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "widgets/StopButton.h"

namespace zlt {
namespace {

Services withGate(const Services& world, Gate& gate) {
    return {.gate = gate,
            .waits = world.waits,
            .files = world.files,
            .help = world.help,
            .programEnd = world.programEnd,
            .processes = world.processes,
            .ownFolder = world.ownFolder,
            .dataFolder = world.dataFolder,
            .makePort = world.makePort,
            .busLog = world.busLog};
}

/// The windows from the one that `widget` is on down to the first: each lies over the next.
std::vector<QWidget*> windowsBelow(QWidget& widget) {
    std::vector<QWidget*> windows;
    for (QWidget* at = &widget; at;) {
        windows.push_back(at->window());
        const auto* screen = qobject_cast<Screen*>(windows.back());
        at = screen ? screen->standsOver() : windows.back()->parentWidget();
    }
    return windows;
}

bool blocksBelow(const QWidget* window) {
    return window->isModal();
}

QRect onDesktop(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

}  // namespace

Screen::Screen(const Services& world, QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      m_gate(
          world.gate, [this] { heldOff(); }, [] { noteBoxClosed(); }),
      m_services(withGate(world, m_gate)),
      handlers(m_services, [this] { leave(); }) {
    // A press or a key is looked at wherever it goes: to a list of this screen's, to a box over it.
    qApp->installEventFilter(this);
}

/// Whichever screen a box stood over: it may have been one that works by another's rules.
void Screen::noteBoxClosed() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* screen = qobject_cast<Screen*>(window))
            screen->m_doubleClicks.windowClosed();
}

void Screen::showModal() {
    auto* below = qobject_cast<Screen*>(parentWidget());
    if (below)
        below->heldOff();
    exec();
    if (below)
        below->m_doubleClicks.windowClosed();
    m_services.programEnd.passOn();
}

void Screen::applyScreenRules() {
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
    for (QComboBox* box : findChildren<QComboBox*>())
        box->setFocusPolicy(Qt::StrongFocus);  // without the wheel's share
}

void Screen::connectStop(StopButton& button, std::function<void()> stop, StopKey key) {
    const std::size_t place = m_stops.size();
    m_stops.push_back({&button, std::move(stop), key});
    connect(&button, &QAbstractButton::pressed, this, [this, place] { act(m_stops[place]); });
}

void Screen::act(const Stop& stop) {
    handlers.runStop(stop.act);
    // A message may have swallowed the release.
    stop.button->setDown(false);
    if (m_services.programEnd.ended())
        leaveWindowsAbove();
}

void Screen::leave() {
    done(Rejected);
    leaveWindowsAbove();  // a file dialog of a window beside this one
}

void Screen::leaveWindowsAbove() {
    QWidget* last = nullptr;
    while (QWidget* above = QApplication::activeModalWidget()) {
        const auto windows = windowsBelow(*above);
        auto* dialog = qobject_cast<QDialog*>(above);
        if (!dialog || above == this || above == last ||
            std::find(windows.begin(), windows.end(), this) == windows.end())
            return;
        dialog->done(Rejected);
        last = above;
    }
}

bool Screen::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType())
        return QDialog::eventFilter(watched, event);
    auto& widget = *static_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return filterKey(widget, *event);
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return filterPress(widget, *static_cast<QMouseEvent*>(event));
        case QEvent::Wheel:
            if (widget.window() == this && qobject_cast<QComboBox*>(watched) &&
                !widget.hasFocus()) {
                event->ignore();
                return true;
            }
            return false;
        default:
            return false;
    }
}

/// Enter presses no button, though some desktops' themes count it among the keys that do; F12 is
/// the stop of the topmost screen that has one.
bool Screen::filterKey(QWidget& watched, QEvent& event) {
    const auto& key = static_cast<QKeyEvent&>(event);
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return watched.window() == this && qobject_cast<QAbstractButton*>(&watched);
    if (key.key() != Qt::Key_F12 || event.type() != QEvent::KeyPress || key.isAutoRepeat())
        return false;
    const auto stop = std::find_if(m_stops.begin(), m_stops.end(),
                                   [](const Stop& each) { return each.key == StopKey::f12; });
    if (stop == m_stops.end())
        return false;
    for (QWidget* window : windowsBelow(watched)) {
        if (window == this) {
            stop->button->setDown(true);
            stop->button->repaint();
            act(*stop);
            return true;
        }
        const auto* above = qobject_cast<Screen*>(window);
        // A screen with stops of its own has the port, and stops by itself.
        if (qobject_cast<QFileDialog*>(window) || (above && !above->m_stops.empty()))
            return false;
    }
    return false;
}

/// A stop counts with a list open, where the desktop would only close the list.
bool Screen::filterPress(QWidget& watched, const QMouseEvent& press) {
    QWidget* list = QApplication::activePopupWidget();
    const QPoint place = press.globalPosition().toPoint();
    const auto under = std::find_if(m_stops.begin(), m_stops.end(), [&](const Stop& stop) {
        return stop.button->isVisible() && onDesktop(*stop.button).contains(place);
    });
    const bool onStop = under != m_stops.end();
    const bool covered = !onStop && watched.window() == this && m_doubleClicks.covers(press);
    m_doubleClicks.pressed(press);
    if (!list || !onStop || press.button() != Qt::LeftButton || onDesktop(*list).contains(place))
        return covered;
    // The list's own window, or else one beside this screen.
    const auto windows = windowsBelow(*list);
    const auto own = std::find(windows.begin(), windows.end(), this);
    if (own == windows.end() || std::any_of(windows.begin() + 1, own, blocksBelow))
        return covered;
    list->setAttribute(Qt::WA_NoMouseReplay);  // or the press would come a second time
    list->close();
    act(*under);
    return true;
}

void Screen::keyPressEvent(QKeyEvent* event) {
    // A dialog's own handling would close on Escape and press a button on Enter.
    event->ignore();
}

void Screen::closeEvent(QCloseEvent* event) {
    event->ignore();
    handlers.run([this] { closeScreen(); });
}

BusyCursor::BusyCursor() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}
BusyCursor::~BusyCursor() {
    QApplication::restoreOverrideCursor();
}

void LinkedScreen::connectAbort(StopBox& box, std::string_view deviceId,
                                std::function<void()> abort) {
    box.showDevice(deviceId);
    const auto stop = [this, abort = std::move(abort)] {
        noteAxisStopped();
        abort();
    };
    connectStop(box.stop(), stop, StopKey::f12);
}

}  // namespace zlt
