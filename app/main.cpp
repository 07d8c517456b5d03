#include <QApplication>

#include "app/EndOnSignal.h"
#include "app/Picture.h"
#include "app/SelectComForm.h"
#include "link/serial/SystemPort.h"
#include "platform/ProgramEnd.h"
#include "platform_qt/QtFiles.h"
#include "platform_qt/ThisSystem.h"
#include "platform_qt/forms/QtGate.h"

// Where even starting fails there is nobody left to tell.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zlt-panel"));
    QApplication::setDesktopFileName(QStringLiteral("org.example.zltpanel"));
    QApplication::setWindowIcon(zlt::Picture::icon());
    // The start-up screen says when the program ends, and with which code.
    QApplication::setQuitOnLastWindowClosed(false);

    zlt::PortDirectory directory{zlt::portListFileName};
    zlt::ProgramEnd programEnd;
    zlt::QtGate boxes;
    zlt::EndingGate gate(boxes, programEnd);
    const auto waits = zlt::makeWaits();
    zlt::QtFiles files;
    zlt::QtHelpViewer help(gate);
    const auto processes = zlt::makeProcesses();
    const zlt::Services services{
        .gate = gate,
        .waits = *waits,
        .files = files,
        .help = help,
        .programEnd = programEnd,
        .processes = *processes,
        .ownFolder = zlt::ownFolder(),
        .dataFolder = zlt::dataFolder(),
        .makePort = [&directory] { return zlt::makeSystemPort(directory); }};

    const zlt::EndOnSignal endOnSignal(programEnd);
    zlt::SelectComForm startUp(services, directory);
    startUp.Form_Load();
    startUp.show();
    return QApplication::exec();
}
