#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "link/Services.h"
#include "widgets/Handlers.h"
#include "widgets/ScreenGuards.h"

namespace zlt {

class StopButton;

/// What all screens share, beside a machine that really moves: Enter presses no
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

    /// The window that this one lies over.
    [[nodiscard]] virtual QWidget* standsOver() const { return parentWidget(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// A window beside this screen was closed: the second press of a double click there is not
    /// meant for what lies below.
    void sideScreenClosed() { m_doubleClicks.windowClosed(); }

 private:
    ScreenGate m_gate;
    const Services m_services;

 protected:
    /// What the screen's close button does; runs as a handler.
    virtual void closeScreen() = 0;
    /// Ends the screen as the program ends within one of its handlers.
    virtual void leave();
    /// A box is about to stand in front, or another screen: what this one reads is held off.
    virtual void heldOff() {}

    /// To be called once the controls stand: applies the rules above to them.
    void applyScreenRules();

    enum class StopKey { none, f12 };
    /// Makes `button` one of the screen's stops: `stop` runs as soon as it is pressed, by mouse
    /// or Space, and with F12 where that is its key; with a list open too, and under a box of
    /// the panel's own. No exchange is ever under way then.
    void connectStop(StopButton& button, std::function<void()> stop, StopKey key);

    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    /// The world outside as this screen's rules and handlers are to use it: the gate tells the
    /// screen of its boxes.
    [[nodiscard]] const Services& services() const { return m_services; }
    Handlers handlers;

 private:
    struct Stop {
        StopButton* button;
        std::function<void()> act;
        StopKey key;
    };

    static void noteBoxClosed();
    bool filterKey(QWidget& watched, QEvent& event);
    bool filterPress(QWidget& watched, const QMouseEvent& press);
    void act(const Stop& stop);
    /// The program ended under a box or a screen that stands over this one: their event loops are
    /// left, and the handlers that opened them unwind.
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

class StopBox;

/// A screen over the panel that talks to the controller over a port of its own, and so has a stop
/// of its own.
class LinkedScreen : public Screen {
    Q_OBJECT

 public:
    using Screen::Screen;

    /// Whether the operator stopped the axis from here.
    [[nodiscard]] bool stoppedAxis() const { return m_stoppedAxis; }

 protected:
    /// Connects the screen's stop, for the device that its link addresses. `abort` sends "ABORT",
    /// whatever the link's flags say.
    void connectAbort(StopBox& box, std::string_view deviceId, std::function<void()> abort);
    void noteAxisStopped() { m_stoppedAxis = true; }

 private:
    bool m_stoppedAxis = false;
};

}  // namespace zlt
