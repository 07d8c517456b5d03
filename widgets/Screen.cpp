#include "widgets/Screen.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>

namespace zlt {

Screen::Screen(const Services& services, QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      handlers(services, [this] { done(Rejected); }),
      m_services(services) {}

void Screen::showModal() {
    exec();
    m_services.programEnd.passOn();
}

void Screen::teachManners() {
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
    for (QComboBox* box : findChildren<QComboBox*>()) {
        box->setFocusPolicy(Qt::StrongFocus);  // without the wheel's share
        box->installEventFilter(this);
    }
}

bool Screen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        const auto* box = qobject_cast<QComboBox*>(watched);
        if (box && !box->hasFocus()) {
            event->ignore();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
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

}  // namespace zlt
