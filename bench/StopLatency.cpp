#include "bench/StopLatency.h"

#include <QEventLoop>
#include <QPointingDevice>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <cstdio>
#include <random>
#include <stdexcept>
#include <thread>

#include "bench/LiveController.h"
#include "bench/TimedPort.h"
#include "bench/World.h"
#include "panel/forms/MainControlForm.h"
#include "programs/forms/ProgramDraft.h"

namespace zlt::bench {
namespace {

constexpr int pressesPerRound = 8;
/// Longer than the longest pass and the stop after it: each press meets a poll at its usual pace.
constexpr std::chrono::milliseconds betweenPresses{700};

struct StopAim {
    Line line;
    double medianMs;
    double worstMs;
};
constexpr StopAim stopAims[] = {{{"9600", 9600}, 80, 150}, {{"115200", 115200}, 15, 150}};

/// Notes when the first command of a stop goes out.
class StopPort final : public TimedPort {
 public:
    StopPort(PacedPeer& peer, PortDirectory& directory, std::atomic<Clock::rep>& stopWritten)
        : TimedPort(peer, directory), m_stopWritten(stopWritten) {}

    bool write(std::string_view bytes) override {
        if (bytes.find("HSPD=") != std::string_view::npos)
            m_stopWritten = Clock::now().time_since_epoch().count();
        return TimedPort::write(bytes);
    }

 private:
    std::atomic<Clock::rep>& m_stopWritten;
};

/// Presses and releases as a hand would, at no time in particular: through the platform's queue,
/// from a thread that is not the panel's.
class Hand {
 public:
    Hand(QPushButton& button, const std::atomic<Clock::rep>& stopWritten)
        : m_window(*button.window()->windowHandle()),
          m_local(button.mapTo(button.window(), button.rect().center())),
          m_global(button.mapToGlobal(button.rect().center())),
          m_stopWritten(stopWritten) {}

    /// From the press to the stop's first byte, for each press.
    Times press(int times, unsigned seed) {
        std::mt19937 random(seed);
        std::uniform_int_distribution<int> anyTime(0, 150);
        Times latencies;
        for (int n = 0; n < times; ++n) {
            std::this_thread::sleep_for(betweenPresses +
                                        std::chrono::milliseconds(anyTime(random)));
            const auto begin = Clock::now();
            send(QEvent::MouseButtonPress, Qt::LeftButton);
            const Clock::time_point written{Clock::duration(m_stopWritten)};
            if (written < begin)
                throw std::runtime_error("a press on the stop sent nothing");
            latencies.push_back(written - begin);
            send(QEvent::MouseButtonRelease, Qt::NoButton);
        }
        return latencies;
    }

 private:
    /// Returns once the panel has handled the event.
    void send(QEvent::Type type, Qt::MouseButtons held) {
        m_timestamp += 1000;
        qt_handleMouseEvent(&m_window, m_local, m_global, held, Qt::LeftButton, type, {},
                            m_timestamp);
    }

    QWindow& m_window;
    QPointF m_local, m_global;
    const std::atomic<Clock::rep>& m_stopWritten;
    int m_timestamp = 0;
};

Times runRound(const Line& line, unsigned seed) {
    LiveController controller;
    PacedPeer peer(line, [&](std::string_view asked) {
        const bool setting = asked.find('=') != std::string_view::npos ||
                             asked.find("STOP") != std::string_view::npos;
        return setting ? "#" + std::string(deviceId) + "OK\r" : controller.answer(asked);
    });
    std::atomic<Clock::rep> stopWritten = 0;
    MessageList messages;
    World world(messages,
                [&] { return std::make_unique<StopPort>(peer, world.directory, stopWritten); });
    world.listPort(peer.device());
    ProgramDraft draft(world.services);
    MainControlForm panel(world.services, draft, nullptr);
    panel.Form_Load({World::port, std::string(line.name), std::string(deviceId)});
    panel.show();

    QPointingDevice::primaryPointingDevice();  // made by the first who asks, in his thread
    Hand hand(*panel.findChild<QPushButton*>(QStringLiteral("RSTOP")), stopWritten);
    Times latencies;
    QEventLoop loop;
    std::exception_ptr failure;
    std::jthread thread([&] {
        try {
            latencies = hand.press(pressesPerRound, seed);
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    thread.join();
    if (failure)
        std::rethrow_exception(failure);
    if (!messages.shown.empty())
        throw std::runtime_error(messages.shown.front());
    panel.close();
    return latencies;
}

}  // namespace

void measureStops(int rounds, Judge& judge) {
    std::printf(
        "\nFrom a press on RSTOP to the first byte of the stop, at any moment of the poll\n");
    std::printf("%8s %10s %10s %10s  %s\n", "baud", "presses", "median ms", "worst ms", "aims");
    for (const StopAim& aim : stopAims) {
        Times all;
        for (int round = 0; round < rounds; ++round) {
            const Times some = runRound(aim.line, static_cast<unsigned>(round));
            all.insert(all.end(), some.begin(), some.end());
        }
        const double typical = Milliseconds(median(all)).count();
        const double worst = Milliseconds(*std::max_element(all.begin(), all.end())).count();
        std::printf("%8s %10zu %10.1f %10.1f  %s, %s\n", aim.line.name.data(), all.size(), typical,
                    worst, judge.atMost(typical, aim.medianMs).c_str(),
                    judge.atMost(worst, aim.worstMs).c_str());
    }
    std::fflush(stdout);
}

}  // namespace zlt::bench
