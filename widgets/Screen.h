#pragma once

#include <QDialog>

#include "link/Services.h"
#include "widgets/Handlers.h"

namespace zlt {

/// The manners all screens share, beside a machine that really moves: Enter presses no
/// button, Escape does nothing, the window frame's close is the screen's own Close, and the
/// mouse wheel changes no box that has not been chosen first.
class Screen : public QDialog {
    Q_OBJECT

 public:
    explicit Screen(const Services& services, QWidget* parent = nullptr);

    /// Shows the screen over its parent until it is closed. Ends the caller's handler too
    /// when the program was ended meanwhile.
    void showModal();

 protected:
    /// What the screen's close button does; runs as a handler.
    virtual void closeScreen() = 0;

    /// To be called once the controls stand: applies the manners to them.
    void teachManners();

    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    const Services& services() const { return m_services; }
    Handlers handlers;

 private:
    const Services& m_services;
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
