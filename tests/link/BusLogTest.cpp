// What is kept of the exchanges of all screens, and how it is told.

#include <gtest/gtest.h>

#include <QtGlobal>
#include <ctime>

#include "link/BusText.h"
#include "link/DeviceSearch.h"
#include "link/ScreenLink.h"
#include "support/World.h"

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

/// A clock of which each look takes a millisecond; it began on a known day, in a known place.
struct Ticking {
    Ticking() {
        qputenv("TZ", "UTC");
        ::tzset();
    }
    Moment look() {
        now += 1ms;
        const std::chrono::sys_days day = std::chrono::year(2026) / 11 / 22;
        return {std::chrono::steady_clock::time_point(now), day + 14h + 3min + now};
    }
    std::chrono::milliseconds now{0};
};

struct LoggedWorld : World {
    LoggedWorld() {
        services.busLog = std::make_shared<BusLog>([this] { return clock.look(); });
    }
    /// All that is kept, a line each: asker, device, command, reply, milliseconds, result.
    [[nodiscard]] std::string logged() const {
        std::string lines;
        services.busLog->visitAfter(0, true, [&](const BusRecord& record) {
            for (const BusColumn column :
                 {BusColumn::askedBy, BusColumn::device, BusColumn::command, BusColumn::reply,
                  BusColumn::taken, BusColumn::result})
                lines += cellOf(record, column) + "|";
            lines.back() = '\n';
        });
        return lines;
    }
    Ticking clock;
};

struct LoggedLink : LoggedWorld {
    explicit LoggedLink(const Flavour& flavour) : link(services, flavour, nullptr) {
        link.connection = {{3}, "9600", "01"};
        link.openPort();
        link.setPortReady(true);
        link.setCommOK(true);
        gate.indifferent = true;
    }
    ScreenLink link;
};

TEST(BusLog, KeepsEveryKindOfExchangeAsItWasOnTheBus) {
    for (const Flavour* flavour :
         {&flavours::controlPanel, &flavours::parameterSetup, &flavours::secondThread}) {
        LoggedLink world(*flavour);
        world.bus.replies = {{"PX", "#01-12"}, {"ID", "\x01<\xE9\x9F"}};
        world.bus.silentAt = "EX";
        world.link.SendReceive("PX");
        world.link.SendReceive("ID");
        {
            const AskedBy poll(world.link.busLog(), Asker::poll);
            world.link.sendAll({"MST"});
            world.link.abort();
        }
        world.bus.feed("late\r");
        world.link.receive("VER");
        world.link.converse({.deviceId = "00", .command = "PX=0", .readsReply = false});
        world.bus.feed("x\ry");
        world.link.dropInput();
        world.bus.feed("#0");
        world.link.converse({.deviceId = "07", .command = "EX"});
        EXPECT_EQ(world.logged(),
                  "screen|01|PX|#01-12<CR>|1.00 ms|\n"
                  "screen|01|ID|<SOH><3C>\xC3\xA9<9F><CR>|1.00 ms|\n"
                  "poll|01|MST|OK<CR>|1.00 ms|\n"
                  "screen|01|ABORT|OK<CR>|1.00 ms|\n"
                  "screen|01|(reads on)|late<CR>|1.00 ms|\n"
                  "screen|00|PX=0||1.00 ms|broadcast\n"
                  "screen|||OK<CR>x<CR>y|1.00 ms|dropped\n"
                  "screen|07|EX|#0|1.00 ms|TIME-OUT\n");
    }
}

TEST(BusLog, MarksALostPortWhereverItIsMet) {
    for (const bool atWrite : {true, false}) {
        LoggedLink world(flavours::terminal);
        (atWrite ? world.bus.losesAtWriteOf : world.bus.losesAtReadOf) = "PX";
        world.bus.silent = true;
        world.link.SendReceive("PX");
        EXPECT_EQ(world.logged(), "screen|01|PX||1.00 ms|PORT LOST\n");
    }
}

TEST(BusLog, HasTheSearchInItToo) {
    struct NoView : SearchView {
        void showText(std::string_view) override {}
        void showProgress(int, int) override {}
        void showResults(std::string_view) override {}
    } view;
    LoggedWorld world;
    world.bus.answer = [](const std::string& request) -> std::optional<std::string> {
        return request == "@02DN" ? std::optional("ZLD02") : std::nullopt;
    };
    const auto port = world.bus.makePort();
    DeviceSearch search(*port, *world.services.busLog, SearchMode::firstFound, view);
    while (search.step() == DeviceSearch::State::running) {
    }
    EXPECT_EQ(world.logged(), "screen|01|DN||1.00 ms|TIME-OUT\nscreen|02|DN|ZLD02<CR>|1.00 ms|\n");
}

BusRecord recordOf(Asker asker, Outcome outcome = Outcome::answered) {
    BusRecord record;
    record.asker = asker;
    record.outcome = outcome;
    return record;
}

TEST(BusLog, NeverLetsThePollPushOutWhatTheOperatorDid) {
    BusLog log;
    log.add(recordOf(Asker::screen));
    log.add(recordOf(Asker::poll, Outcome::timedOut));
    for (std::size_t count = 0; count < 2 * BusLog::recordsKept; ++count)
        log.add(recordOf(count % 2 == 0 ? Asker::poll : Asker::probe));
    log.add(recordOf(Asker::screen));

    const auto numbers = [&](std::uint64_t after, bool withRoutine) {
        std::vector<std::uint64_t> found;
        log.visitAfter(after, withRoutine,
                       [&](const BusRecord& record) { found.push_back(record.number); });
        return found;
    };
    const std::uint64_t newest = 2 * BusLog::recordsKept + 3;
    EXPECT_EQ(log.newest(), newest);
    EXPECT_EQ(numbers(0, false), (std::vector<std::uint64_t>{1, 2, newest}));
    EXPECT_EQ(numbers(2, false), std::vector<std::uint64_t>{newest});
    EXPECT_EQ(numbers(newest - 3, true),
              (std::vector<std::uint64_t>{newest - 2, newest - 1, newest}));
    const auto all = numbers(0, true);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_EQ(all.size(), BusLog::recordsKept + 3);
    EXPECT_EQ(all[2], newest - BusLog::recordsKept) << "the oldest of the routine ones";

    const auto last = log.last(3, false);
    ASSERT_EQ(last.size(), 3U);
    EXPECT_EQ(last.front().number, 1U);
    EXPECT_EQ(log.last(2, true).front().number, newest - 1);
    EXPECT_EQ(log.last(100'000, true).size(), all.size());
}

TEST(BusLog, IsToldAsATableInWhichNothingIsCutInSilence) {
    LoggedLink world(flavours::controlPanel);
    world.bus.replies = {{"PX", "#01-12"}, {"V1", std::string(100, 'A')}};
    world.link.SendReceive("PX");
    world.link.SendReceive("V1");
    const std::string table = busTable(world.services.busLog->last(9, true), "\n");
    EXPECT_EQ(table.substr(0, table.find("V1")),
              "Time                     Port          Device  Asked by  Command           "
              "Reply                     Took        Result\n"
              "2026-11-22 14:03:00.001  COM3 9600     01      screen    PX                "
              "#01-12<CR>                1.00 ms\n"
              "2026-11-22 14:03:00.003  COM3 9600     01      screen    ");
    EXPECT_TRUE(table.ends_with(std::string(80, 'A') + "\xE2\x80\xA6 (21 more)  1.00 ms\n"))
        << table;

    const BusRecord record = world.services.busLog->last(2, true).front();
    for (const char* held : {"", "px", "-12<cr>", "COM3", "Screen", "01"})
        EXPECT_TRUE(holdsText(record, held)) << held;
    EXPECT_FALSE(holdsText(record, "PXX"));
}

}  // namespace
}  // namespace zlt::test
