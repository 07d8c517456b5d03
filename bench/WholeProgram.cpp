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
#include "terminal/forms/BusForm.h"

namespace zlt::bench {
namespace {

/// The first passes paint the whole screen.
constexpr std::chrono::milliseconds warmUp{300};
constexpr std::chrono::milliseconds watchTime{2000};

struct BusyAim {
    Line line;
    double leastBusy;
};
constexpr BusyAim busyAims[] = {{{"9600", 9600}, 0.96}, {{"115200", 115200}, 0.80}};
/// The least that is left of the passes while the windows beside the panel are open.
constexpr double leastOfPasses = 0.97;
enum class SideWindows { closed, open };

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

/// Opens the bus monitor, which lists every exchange of the poll then, and the trend at its
/// busiest.
void openSideWindows(MainControlForm& panel) {
    const auto press = [](QWidget* in, const char* button) {
        auto* found = in ? in->findChild<QAbstractButton*>(QString::fromLatin1(button)) : nullptr;
        if (!found)
            throw std::runtime_error("there is no button " + std::string(button));
        found->click();
    };
    press(&panel, "Bus");
    press(panel.findChild<BusForm*>(), "ShowPoll");
    press(&panel, "Trend");
    panel.findChild<TrendPlot*>()->setSpan(std::chrono::seconds(10));
}

void runRound(const Line& line, SideWindows windows, Rounds& rounds) {
    LiveController controller;
    PacedPeer peer(line, [&](std::string_view asked) { return controller.answer(asked); });
    MessageList messages;
    World world(messages, [&] { return std::make_unique<TimedPort>(peer, world.directory); });
    world.listPort(peer.device());

    ProgramDraft draft(world.services);
    MainControlForm panel(world.services, draft, nullptr);
    panel.Form_Load({World::port, std::string(line.name), std::string(deviceId)});
    panel.show();
    if (windows == SideWindows::open)
        openSideWindows(panel);
    runEventsFor(warmUp);

    const auto begin = Clock::now();
    const auto wireBefore = peer.wireBusy();
    const auto processorBefore = processorTime();
    const long passesBefore = controller.passes();
    runEventsFor(watchTime);
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
    std::printf("%8s  %-18s %9s %10s %12s  %s\n", "baud", "", "wire busy", "passes/s", "processor",
                "aims");
    std::map<std::pair<long, SideWindows>, Rounds> measured;
    for (int round = 0; round < rounds; ++round)
        for (const BusyAim& aim : busyAims)
            for (const SideWindows windows : {SideWindows::closed, SideWindows::open})
                runRound(aim.line, windows, measured[{aim.line.baud, windows}]);
    const auto print = [](const Line& line, const char* windows, const Rounds& of,
                          const std::string& verdict) {
        std::printf("%8s  %-18s %9.3f %10.1f %10.1f %%  %s\n", line.name.data(), windows,
                    median(of.wireBusy), median(of.passes), 100 * median(of.processor),
                    verdict.c_str());
    };
    for (const BusyAim& aim : busyAims) {
        const Rounds& alone = measured[{aim.line.baud, SideWindows::closed}];
        const Rounds& open = measured[{aim.line.baud, SideWindows::open}];
        print(aim.line, "panel alone", alone, judge.atLeast(median(alone.wireBusy), aim.leastBusy));
        print(aim.line, "windows open", open,
              "of the passes " +
                  judge.atLeast(median(open.passes) / median(alone.passes), leastOfPasses));
    }
    std::fflush(stdout);
}

}  // namespace zlt::bench
