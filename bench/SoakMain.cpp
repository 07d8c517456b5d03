#include <QApplication>
#include <QCommandLineParser>
#include <iostream>
#include <stdexcept>

#include "bench/SoakPhases.h"

namespace {

int countOf(const QCommandLineParser& options, const QCommandLineOption& option) {
    bool isNumber = false;
    const int count = options.value(option).toInt(&isNumber);
    if (!isNumber || count < 0)
        throw std::invalid_argument("--" + option.names().first().toStdString() +
                                    " takes a number from 0");
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);

    const auto option = [](const char* name, const char* what, const char* count) {
        return QCommandLineOption(QLatin1String(name), QLatin1String(what), QStringLiteral("N"),
                                  QLatin1String(count));
    };
    const auto exchanges = option("exchanges", "N exchanges", "300000");
    const auto cycles = option("cycles", "N open, hang-up and close cycles", "300");
    const auto openings = option("openings", "N openings of each screen", "500");
    QCommandLineParser options;
    options.setApplicationDescription(QStringLiteral(
        "Soaks link and screens against the simulator. Ends with 1 when a reply is wrong, a file\n"
        "stays open, or exchanges or cycles keep more than 1 MiB. A count of 0 leaves out."));
    options.addHelpOption();
    options.addOptions({exchanges, cycles, openings});
    options.process(application);

    try {
        zlt::bench::SoakBed bed;
        bool good = true;
        if (const int count = countOf(options, exchanges))
            good = zlt::bench::soakExchanges(bed, count) && good;
        if (const int count = countOf(options, cycles))
            good = zlt::bench::soakCycles(bed, count) && good;
        if (const int count = countOf(options, openings))
            good = zlt::bench::soakScreens(bed, count) && good;
        std::cout << (good ? "All well." : "Something was kept, or went wrong.") << std::endl;
        return good ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return 2;
    }
}
