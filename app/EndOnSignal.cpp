#include "app/EndOnSignal.h"

#include <signal.h>
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QSocketNotifier>

#include "platform/SignalPipe.h"

namespace zlt {

EndOnSignal::EndOnSignal(ProgramEnd& programEnd) : m_programEnd(programEnd) {
    const int caught = catchSignals({SIGTERM, SIGHUP, SIGINT});
    if (caught < 0)
        return;
    auto* notifier = new QSocketNotifier(caught, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, caught] {
        char number = 0;
        if (read(caught, &number, 1) == 1)
            end(number);
    });
}

void EndOnSignal::end(int signal) {
    m_programEnd.askForEnd(128 + signal);
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    // What had shown the box or screen on top passes the end on, down to the start-up screen.
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
    else
        QCoreApplication::exit(m_programEnd.exitCode());
}

}  // namespace zlt
