#include <QCoreApplication>
#include <cstdlib>
#include <iostream>

#include "ctl/Run.h"
#include "ctl/SystemConsole.h"
#include "link/serial/SystemPort.h"
#include "platform_qt/QtFiles.h"
#include "platform_qt/ThisSystem.h"

namespace {

/// Nothing here asks for help files.
class NoHelp final : public zlt::HelpViewer {
    void openContents(const std::filesystem::path&) override {}
};

bool hasColours() {
    const char* kind = std::getenv("TERM");
    return zlt::ctl::isTerminal(zlt::ctl::Stream::output) && !std::getenv("NO_COLOR") && kind &&
           std::string_view(kind) != "dumb";
}

std::vector<std::string> commandLine() {
    std::vector<std::string> texts;
    for (const QString& text : QCoreApplication::arguments().mid(1))
        texts.push_back(text.toStdString());
    return texts;
}

}  // namespace

// Where even starting fails there is nobody left to tell.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zltctl"));

    zlt::ctl::SystemConsole console;
    zlt::ctl::Output output(std::cout, std::cerr);
    output.style.colours = hasColours();
    output.style.progress = zlt::ctl::isTerminal(zlt::ctl::Stream::errors);
    zlt::ctl::CommandGate gate;
    zlt::PortDirectory directory{zlt::portListFileName};
    zlt::ProgramEnd programEnd;
    const auto waits = zlt::makeWaits();
    zlt::QtFiles files;
    NoHelp help;
    const auto processes = zlt::makeProcesses();
    const zlt::Services services{
        .gate = gate,
        .waits = *waits,
        .files = files,
        .help = help,
        .programEnd = programEnd,
        .processes = *processes,
        .ownFolder = zlt::ownFolder(),
        .makePort = [&directory] { return zlt::makeSystemPort(directory); }};
    return zlt::ctl::run({services, gate, directory, console, output}, commandLine());
}
