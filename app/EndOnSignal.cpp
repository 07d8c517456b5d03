#include "app/EndOnSignal.h"

#include <signal.h>
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QSocketNotifier>
#include <cstdlib>

#include "platform/SignalPipe.h"

namespace zlt {
namespace {

// What exit() runs gets nothing at all. Null while nothing is there to be ended.
ProgramEnd* endAtExit = nullptr;

void keepAtExit() {
    if (endAtExit)
        endAtExit->askForEnd(EXIT_FAILURE);
}

void heedExit(ProgramEnd& programEnd) {
    static const int noted = std::atexit(keepAtExit);
    endAtExit = noted == 0 ? &programEnd : nullptr;
}

}  // namespace

EndOnSignal::EndOnSignal(ProgramEnd& programEnd) : m_programEnd(programEnd) {
    heedExit(programEnd);
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

EndOnSignal::~EndOnSignal() {
    endAtExit = nullptr;
}

void EndOnSignal::end(int signal) {
    m_programEnd.askForEnd(128 + signal);
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    // What had shown the box or screen on top passes the end on, down to the start-up screen.
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog) {
        QCoreApplication::exit(m_programEnd.exitCode());
        return;
    }
    dialog->reject();
    // A question of a file dialog's own, about overwriting say, has nobody who passes it on.
    while (auto* below = qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
        below->reject();
}

}  // namespace zlt
