#pragma once

#include <QByteArray>
#include <QString>
#include <QWidget>
#include <map>
#include <memory>

namespace zlt {

class Screen;

/// Where the windows beside the screens stood last, by their names. Lives for a run of the program.
using WindowPlaces = std::map<QString, QByteArray>;

/// A window that stays up beside a screen, which goes on being worked meanwhile. It belongs to that
/// screen: the screen's rules hold on it (Enter presses no button, F12 is the screen's stop), a
/// screen or a box over the one is over the other, and it goes with it. What it does runs among the
/// screen's own handlers, as with a frame on the screen, so that a box that it shows holds off what
/// a box of the screen would hold off. Escape does nothing; closing it only hides it.
class SideWindow : public QWidget {
    Q_OBJECT

 public:
    /// `owner` owns the window and destroys it before itself; null for one that stands alone.
    SideWindow(Screen* owner, std::shared_ptr<WindowPlaces> places);

    /// Shows the window where it stood last, or brings it to the front.
    void present();

    bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
    void hideEvent(QHideEvent* event) override;

 private:
    void place();

    Screen* m_owner;
    std::shared_ptr<WindowPlaces> m_places;
};

}  // namespace zlt
