#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "link/Services.h"
#include "widgets/DoubleClickGuard.h"
#include "widgets/Handlers.h"
#include "widgets/ScreenGate.h"

namespace zlt {

class StopButton;

/// The manners all screens share, beside a machine that really moves: Enter presses no
/// button, Escape does nothing, the window frame's close is the screen's own Close, the mouse
/// wheel changes no box that has not been chosen first, the second press of a double click that
/// closed a window above does nothing, and a stop acts whatever else is going on.
class Screen : public QDialog {
    Q_OBJECT

 public:
    /// `world` is what the screen needs of the world outside; see services().
    explicit Screen(const Services& world, QWidget* parent = nullptr);

    /// Shows the screen over its parent until it is closed. Ends the caller's handler too
    /// when the program was ended meanwhile.
    void showModal();

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    ScreenGate m_gate;
    const Services m_services;

 protected:
    /// What the screen's close button does; runs as a handler.
    virtual void closeScreen() = 0;
    /// A box is about to stand in front, or another screen: what this one reads is held off.
    virtual void heldOff() {}

    /// To be called once the controls stand: applies the manners to them.
    void teachManners();

    enum class StopKey { none, f12 };
    /// Makes `button` one of the screen's stops: `stop` runs as soon as it is pressed, by mouse
    /// or Space, and with F12 where that is its key; with a list open too, and under a box of
    /// the panel's own. No exchange is ever under way then.
    void connectStop(StopButton& button, std::function<void()> stop, StopKey key);

    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    /// The world outside as this screen's rules and handlers are to use it: the gate tells the
    /// screen of its boxes.
    const Services& services() const { return m_services; }
    Handlers handlers;

 private:
    struct Stop {
        StopButton* button;
        std::function<void()> act;
        StopKey key;
    };

    bool filterKey(QWidget& watched, QEvent& event);
    bool filterPress(QWidget& watched, const QMouseEvent& press);
    void act(const Stop& stop);
    void leaveWindowsAbove();

    DoubleClickGuard m_doubleClicks;
    std::vector<Stop> m_stops;
};

/// Shows the busy cursor while it lives.
class BusyCursor {
 public:
    BusyCursor();
    ~BusyCursor();
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

}  // namespace zlt
