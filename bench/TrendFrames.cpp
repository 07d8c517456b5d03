#include "bench/TrendFrames.h"

#include <QCoreApplication>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <stdexcept>

#include "bench/Resources.h"
#include "bench/Statistics.h"
#include "bench/Wire.h"
#include "bench/World.h"
#include "panel/forms/TrendForm.h"

namespace zlt::bench {
namespace {

using namespace std::chrono_literals;

/// As fast as the poll ever goes.
constexpr auto passTime = 10ms;
constexpr long aDay = 24h / passTime;
constexpr int framesARound = 20;
constexpr double longestFrameMs = 2;
constexpr double leastFrameMs = 0.01;
constexpr double mostMemoryMiB = 32;

AxisReading reading(long pass, TrendTime time) {
    AxisReading axis;
    axis.time = time;
    const double place = 20000 * std::sin(static_cast<double>(pass) / 700);
    axis.position = std::to_string(std::lround(place));
    axis.encoder = std::to_string(std::lround(place) + pass % 7 - 3);
    axis.current = std::to_string(800 + pass % 400);
    axis.status = StatusWord(pass / 300 % 2 != 0 ? 1 : 0);
    axis.driverEnabled = true;
    axis.program = AxisReading::Program{false, false, static_cast<std::int32_t>(pass % 100),
                                        ProgramState::running};
    return axis;
}

/// The processor's time of this thread so far: a frame waits for nothing, and on a machine that
/// others use as well the clock on the wall would count them in.
double processorMs() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Each frame as the window makes it, painted and brought to the display.
double frameMs(TrendPlot& plot) {
    const double begin = processorMs();
    plot.repaint();
    return processorMs() - begin;
}

}  // namespace

void measureTrend(int rounds, Judge& judge) {
    std::printf("\nThe trend, filled by a hundred passes a second\n");
    const long before = Resources::now().memoryKiB;
    TrendTime time = Clock::now();
    TrendRecord record(TrendRecord::anHour, time);
    for (long pass = 0; pass < aDay; ++pass)
        record.add(reading(pass, time += passTime));
    const double mib = static_cast<double>(Resources::now().memoryKiB - before) / 1024;
    std::printf("%-36s %8.1f MiB          %s\n", "memory after a day", mib,
                judge.atMost(mib, mostMemoryMiB).c_str());

    MessageList messages;
    World world(messages);
    QWidget owner;
    TrendForm form(world.services, owner, std::make_shared<WindowPlaces>(), record,
                   [&] { return time += 33ms; });
    form.resize(1366, 700);
    form.show();
    QCoreApplication::processEvents();  // nothing is painted before the display has the window
    auto& plot = *form.findChild<TrendPlot*>();
    for (const TrendView::Span span :
         {TrendView::Span(10s), TrendView::Span(10min), TrendView::Span(1h)}) {
        plot.setSpan(span);
        std::vector<double> frames;
        frames.reserve(static_cast<std::size_t>(rounds) * framesARound);
        for (int frame = 0; frame < rounds * framesARound; ++frame)
            frames.push_back(frameMs(plot));
        const double frame = median(frames);
        if (frame < leastFrameMs)
            throw std::runtime_error("the trend is not painted");
        std::printf("%-36s %8.2f ms           %s\n", ("a frame of " + trendSpanText(span)).c_str(),
                    frame, judge.atMost(frame, longestFrameMs).c_str());
    }
    std::fflush(stdout);
}

}  // namespace zlt::bench
