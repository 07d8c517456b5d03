#include <QApplication>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "bench/BusCost.h"
#include "bench/Exchanges.h"
#include "bench/FirstPaint.h"
#include "bench/Options.h"
#include "bench/StopLatency.h"
#include "bench/TrendFrames.h"
#include "bench/WholeProgram.h"

namespace zlt::bench {
namespace {

constexpr std::string_view legend = R"(
  panel        the panel's own exchange
  C loop       blocking reads of the device in C: what this system can do
  pyserial     Python's serial library; its requests begin when the peer sees them
  1 ms sleeps  the panel's exchange, with plain sleeps where its wait wakes on data
  lost         exchanges without a reply in time: a busy machine keeps the peer waiting
  peer us      by how much the peer sent the last byte late; part of what is measured
  wire/this    the wire's own time, 10 bits a byte, by the client's
  wire busy    share of the time in which bytes were on the wire, either way
  processor    share of one core that the panel takes, painting without a display
All numbers are medians.
)";

int run(const Options& options, int argc, char** argv) {
    if (options.help) {
        std::cout << helpText;
        return 0;
    }
    if (!options.firstPaint.empty())
        return showFirstPaint(options.firstPaint, argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Judge judge;
    measureExchanges(options.rounds, options.python, judge);
    measureBusLog(options.rounds, judge);
    measureProgram(options.rounds, judge);
    measureStops(options.rounds, judge);
    measureTrend(options.rounds, judge);
    measureFirstPaint(options.rounds, judge);
    std::cout << legend << (judge.allMet() ? "All aims are met.\n" : "An aim is MISSED.\n");
    return options.check && !judge.allMet() ? 1 : 0;
}

}  // namespace
}  // namespace zlt::bench

int main(int argc, char** argv) {
    try {
        return zlt::bench::run(zlt::bench::parseOptions({argv + 1, argv + argc}), argc, argv);
    } catch (const std::invalid_argument& error) {
        std::cerr << "exchange_bench: " << error.what() << '\n';
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "exchange_bench: " << error.what() << '\n';
        return 1;
    }
}
