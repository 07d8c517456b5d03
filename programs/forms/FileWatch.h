#pragma once

#include <QTimer>

#include "widgets/Handlers.h"

namespace zlt {

/// Looks after the program text's file each time a window comes to the front: another program may
/// have written to it.
class FileWatch : public QObject {
    Q_OBJECT

 public:
    /// `look` runs as a handler of the window's screen. All of these outlive this.
    FileWatch(QObject* parent, QWidget& window, Handlers& handlers, std::function<void()> look);

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void lookOnceIdle();

    QWidget& m_window;
    Handlers& m_handlers;
    std::function<void()> m_look;
    QTimer m_soon{this};
};

}  // namespace zlt
