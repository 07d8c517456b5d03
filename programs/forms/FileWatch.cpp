#include "programs/forms/FileWatch.h"

#include <QApplication>
#include <QEvent>
#include <chrono>
#include <utility>

namespace zlt {
namespace {

/// A press that brings the window to the front acts first: it may be a stop, and a question would
/// take it away.
constexpr std::chrono::milliseconds afterThePress{200};

}  // namespace

FileWatch::FileWatch(QObject* parent, QWidget& window, Handlers& handlers,
                     std::function<void()> look)
    : QObject(parent), m_window(window), m_handlers(handlers), m_look(std::move(look)) {
    m_soon.setObjectName(QStringLiteral("fileWatchTimer"));
    m_soon.setSingleShot(true);
    m_soon.setInterval(afterThePress);
    connect(&m_soon, &QTimer::timeout, this, [this] { lookOnceIdle(); });
    window.installEventFilter(this);
}

bool FileWatch::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window && event->type() == QEvent::WindowActivate)
        m_soon.start();
    return false;
}

void FileWatch::lookOnceIdle() {
    const bool handAtWork =
        QApplication::mouseButtons() != Qt::NoButton || QApplication::activePopupWidget();
    if (handAtWork)
        m_soon.start();
    else if (m_window.isActiveWindow())
        m_handlers.run(m_look);
}

}  // namespace zlt
