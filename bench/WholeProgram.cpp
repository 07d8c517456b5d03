#include "bench/WholeProgram.h"

#include <sys/resource.h>

#include <QAbstractButton>
#include <QEventLoop>
#include <QLineEdit>
#include <QTimer>
#include <cstdio>
#include <map>
#include <stdexcept>

#include "bench/LiveController.h"
#include "bench/TimedPort.h"
#include "bench/World.h"
#include "panel/forms/MainControlForm.h"
#include "panel/forms/TrendPlot.h"
#include "programs/forms/ProgramDraft.h"

namespace zlt::bench {
namespace {

/// The first passes paint the whole screen.
constexpr std::chrono::milliseconds warmUp{300};
constexpr std::chrono::milliseconds roundTime{2000};

struct Aim {
    Line line;
    double leastBusy;
};
constexpr Aim aims[] = {{{"9600", 9600}, 0.96}, {{"115200", 115200}, 0.80}};
/// Of the passes without windows beside the panel.
constexpr double leastWithWindows = 0.97;

/// What the panel's own thread has taken of the processor so far.
std::chrono::microseconds processorTime() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    const auto of = [](const timeval& time) {
        return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

void runEventsFor(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Each as a median over the rounds.
struct Rounds {
    std::vector<double> wireBusy;   ///< share of the time
    std::vector<double> processor;  ///< share of one core
    std::vector<double> passes;     ///< of the poll, a second
};

/// Opens each window that stays up beside the panel, at its busiest.
void openWindows(MainControlForm& panel) {
    panel.findChild<QAbstractButton*>(QStringLiteral("Trend"))->click();
    auto* trend = panel.findChild<TrendPlot*>();
    if (!trend || !trend->isVisible())
        throw std::runtime_error("the trend does not open");
    trend->setSpan(std::chrono::seconds(10));
}

void runRound(const Line& line, bool windows, Rounds& rounds) {
    LiveController controller;
    PacedPeer peer(line, [&](std::string_view asked) { return controller.answer(asked); });
    MessageList messages;
    World world(messages, [&] { return std::make_unique<TimedPort>(peer, world.directory); });
    world.listPort(peer.device());

    ProgramDraft draft(world.services);
    MainControlForm panel(world.services, draft, nullptr);
    panel.Form_Load({World::port, std::string(line.name), std::string(deviceId)});
    panel.show();
    if (windows)
        openWindows(panel);
    runEventsFor(warmUp);

    const auto begin = Clock::now();
    const auto wireBefore = peer.wireBusy();
    const auto processorBefore = processorTime();
    const long passesBefore = controller.passes();
    runEventsFor(roundTime);
    const std::chrono::duration<double> taken = Clock::now() - begin;

    const auto* shown = panel.findChild<QLineEdit*>(QStringLiteral("ProgIndex"));
    const long last = controller.passes();
    if (!messages.shown.empty() || !shown || shown->text().toLong() != last % 100)
        throw std::runtime_error("the panel does not show what the controller says");
    rounds.wireBusy.push_back((peer.wireBusy() - wireBefore) / taken);
    rounds.processor.push_back((processorTime() - processorBefore) / taken);
    rounds.passes.push_back(static_cast<double>(last - passesBefore) / taken.count());
    panel.close();
}

}  // namespace

void measureProgram(int rounds, Judge& judge) {
    std::printf("\nThe control panel, ten values that change with each pass of its poll\n");
    std::printf("%8s %8s %10s %10s %12s  %s\n", "baud", "windows", "wire busy", "passes/s",
                "processor", "aim");
    std::map<std::pair<long, bool>, Rounds> measured;
    for (int round = 0; round < rounds; ++round)
        for (const Aim& aim : aims)
            for (const bool windows : {false, true})
                runRound(aim.line, windows, measured[{aim.line.baud, windows}]);
    for (const Aim& aim : aims) {
        const double alone = median(measured[{aim.line.baud, false}].passes);
        for (const bool windows : {false, true}) {
            const Rounds& of = measured[{aim.line.baud, windows}];
            const double busy = median(of.wireBusy);
            const double passes = median(of.passes);
            const std::string verdict = windows ? judge.atLeast(passes / alone, leastWithWindows)
                                                : judge.atLeast(busy, aim.leastBusy);
            std::printf("%8s %8s %10.3f %10.1f %10.1f %%  %s\n", aim.line.name.data(),
                        windows ? "open" : "closed", busy, passes, 100 * median(of.processor),
                        verdict.c_str());
        }
    }
    std::fflush(stdout);
}

}  // namespace zlt::bench
