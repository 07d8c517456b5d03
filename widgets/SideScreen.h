#pragma once

#include <QByteArray>
#include <QPointer>
#include <QString>
#include <map>
#include <memory>

#include "widgets/Screen.h"

namespace zlt {

/// Where the windows beside the panel stood last, by their names. Lives for a run of the program.
using WindowPlaces = std::map<QString, QByteArray>;

/// A screen that stays beside the one it belongs to, and can be worked together with that. When
/// another screen opens over that one, it goes over to the new one, which would lock it otherwise,
/// and comes back when that is closed. Under a message or a file dialog it is locked, as all others
/// are, and goes on showing what there is. It is closed with its owner, and comes back where it
/// stood.
///
/// It has no stop of its own: F12 here is that of the screen it stands over.
class SideScreen : public Screen {
    Q_OBJECT

 public:
    /// `owner` outlives the screen.
    SideScreen(const Services& world, QWidget& owner, std::shared_ptr<WindowPlaces> places);

    /// Shows it, at first on free ground beside its owner, or brings it to the front.
    void showBeside();

    [[nodiscard]] QWidget* standsOver() const override {
        return m_over ? m_over.data() : parentWidget();
    }

    bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;
    void leave() override;
    void closeScreen() override { done(Accepted); }

    /// While it lives the screen stays under what it opens itself.
    class OwnDialog {
     public:
        explicit OwnDialog(SideScreen& screen) : m_screen(screen) { screen.m_ownDialog = true; }
        ~OwnDialog();
        OwnDialog(const OwnDialog&) = delete;
        OwnDialog& operator=(const OwnDialog&) = delete;

     private:
        SideScreen& m_screen;
    };

 private:
    void standOverTopScreen();
    void standOverLater();
    void takePlace();

    std::shared_ptr<WindowPlaces> m_places;
    QPointer<QWidget> m_over;  ///< another screen than the owner
    bool m_ownDialog = false;
};

}  // namespace zlt
