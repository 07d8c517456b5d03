// What the trend keeps of the poll and how it cuts it into columns, without a form.

#include <gtest/gtest.h>

#include "panel/TrendCsv.h"
#include "panel/TrendScale.h"
#include "panel/TrendView.h"

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

const TrendTime start{1000h};

AxisReading reading(TrendTime time, const std::string& position, const std::string& encoder,
                    int status = 0) {
    AxisReading axis;
    axis.time = time;
    axis.position = position;
    axis.encoder = encoder;
    axis.current = "500";
    axis.status = StatusWord(status);
    axis.driverEnabled = true;
    return axis;
}

/// A record that is fed by the number of the pass, 10 ms apart.
struct Fed {
    explicit Fed(std::size_t most = TrendRecord::anHour) : record(most, start) {
        record.startDevice("01");
    }
    void pass(long position, int status = 0) {
        record.add(reading(start + passes++ * 10ms, std::to_string(position), "0", status));
    }
    /// From `from` on, cut into columns.
    [[nodiscard]] std::vector<TrendPiece> pieces(std::chrono::nanoseconds from,
                                                 std::chrono::nanoseconds column, int count) const {
        return trendPieces(record, {start + from, column, count});
    }

    TrendRecord record;
    long passes = 0;
};

std::string text(const std::vector<TrendBar>& bars) {
    std::string all;
    const auto number = [](double value) {
        std::string digits = std::to_string(value);
        digits.erase(digits.find_last_not_of('0') + 1);
        return digits.back() == '.' ? digits.substr(0, digits.size() - 1) : digits;
    };
    for (const TrendBar& bar : bars)
        all += (all.empty() ? "" : " ") + std::to_string(bar.column) + ":" + number(bar.low) +
               ".." + number(bar.high);
    return all;
}

TEST(Trend, DrawsALineBetweenPassesAndNoneAcrossAGap) {
    Fed fed;
    for (const long position : {0, 10, 20})
        fed.pass(position);
    fed.record.breakOff();
    fed.passes += 4;
    fed.pass(100);
    fed.pass(100);
    const auto bars = [&](auto from, auto column, int count) {
        return text(trendBars(fed.pieces(from, column, count), TrendSeries::position, count));
    };
    EXPECT_EQ(bars(0ms, 10ms, 10), "0:0..5 1:5..15 2:15..20 7:100..100 8:100..100");
    EXPECT_EQ(bars(0ms, 5ms, 5), "0:0..2.5 1:2.5..7.5 2:7.5..12.5 3:12.5..17.5 4:17.5..20");
    EXPECT_EQ(bars(12ms, 1ms, 3), "0:11.5..12.5 1:12.5..13.5 2:13.5..14.5")
        << "between two passes that are out of sight";
    EXPECT_EQ(bars(40ms, 5ms, 4), "") << "within the gap";
    EXPECT_EQ(bars(0ms, 100ms, 1), "0:0..20 0:100..100") << "a gap is narrower than a column";
}

TEST(Trend, KeepsLeastAndGreatestOfEachColumnHoweverManyPasses) {
    // One pass out of a thousand stands out; summaries must agree with the passes one by one.
    Fed fed;
    for (long pass = 0; pass < 20'000; ++pass) {
        if (pass % 3001 == 3000)
            fed.record.breakOff();
        fed.pass(pass == 12'345 ? 99'999 : pass == 4'567 ? -5 : pass, pass == 12'345 ? 8 : 1);
    }
    for (const auto column : {10ms, 70ms, 333ms, 5000ms}) {
        const int count = static_cast<int>(200s / column) + 1;
        std::vector<std::pair<std::int64_t, std::int64_t>> expected(static_cast<std::size_t>(count),
                                                                    {1'000'000, -1'000'000});
        for (std::size_t index = 0; index < fed.record.size(); ++index) {
            const TrendSample& sample = fed.record.at(index);
            auto& [low, high] = expected[static_cast<std::size_t>((sample.time - start) / column)];
            low = std::min<std::int64_t>(low, sample.position);
            high = std::max<std::int64_t>(high, sample.position);
        }
        const auto pieces = fed.pieces(0ms, column, count);
        std::vector<std::pair<std::int64_t, std::int64_t>> found(expected.size(),
                                                                 {1'000'000, -1'000'000});
        for (const TrendPiece& piece : pieces) {
            auto& [low, high] = found.at(static_cast<std::size_t>(piece.column));
            low = std::min<std::int64_t>(low, piece.all.ranges[0].low);
            high = std::max<std::int64_t>(high, piece.all.ranges[0].high);
        }
        EXPECT_EQ(found, expected) << column.count() << " ms";
        const auto states = trendStates(pieces, count);
        for (std::size_t at = 0; at < states.size(); ++at)
            EXPECT_EQ((states[at] & trendMinusLimit) != 0,
                      at == static_cast<std::size_t>(123'450ms / column))
                << at << " at " << column.count() << " ms";
    }
}

TEST(Trend, FollowsTheTimeAsIfEachWindowWereCutAnew) {
    Fed fed;
    TrendWindow window;
    const int count = 40;
    auto from = 0ms;
    for (int frame = 0; frame < 400; ++frame) {
        for (int more = 0; more < frame % 7; ++more)
            fed.pass(fed.passes * 37 % 1000, static_cast<int>(fed.passes % 9));
        if (frame % 31 == 30) {
            fed.record.breakOff();
            fed.passes += frame % 5 * 10;
        }
        const auto column = frame > 300 ? 7ms : 25ms;
        if (frame % 3 != 0)
            from = std::max(0ms, fed.passes * 10ms / column * column - (count - 1) * column);
        if (frame % 97 == 96)
            from /= 2;  // dragged back
        const TrendCut cut{start + from, column, count};
        const auto anew = trendPieces(fed.record, cut);
        const auto& kept = window.pieces(fed.record, cut);
        for (std::size_t series = 0; series < trendSeriesCount; ++series)
            ASSERT_EQ(text(trendBars(kept, static_cast<TrendSeries>(series), count)),
                      text(trendBars(anew, static_cast<TrendSeries>(series), count)))
                << frame;
        ASSERT_EQ(trendStates(kept, count), trendStates(anew, count)) << frame;
    }
}

TEST(Trend, HoldsAStateUntilTheNextPassButNotOverAGap) {
    Fed fed;
    fed.pass(0, 1);
    fed.passes += 3;
    fed.pass(0, 0);
    fed.record.breakOff();
    fed.passes += 2;
    fed.pass(0, 16);
    const TrendStates idle = trendMotion(MotionState::idle),
                      moving = trendMotion(MotionState::moving);
    const TrendStates atLimit = static_cast<TrendStates>(idle | trendPlusLimit);
    EXPECT_EQ(trendStates(fed.pieces(0ms, 10ms, 8), 8),
              (std::vector<TrendStates>{moving, moving, moving, moving, idle, 0, 0, atLimit}));
}

TEST(Trend, FollowsNoErrorWhereOneOfTheTwoIsNoNumber) {
    Fed fed;
    fed.record.add(reading(start, "34 cts", "5"));
    fed.record.add(reading(start + 10ms, "2147483647", "-2147483648"));
    EXPECT_FALSE(fed.record.at(0).value(TrendSeries::followingError));
    EXPECT_FALSE(fed.record.at(0).value(TrendSeries::position));
    EXPECT_EQ(fed.record.at(0).value(TrendSeries::encoder), 5);
    EXPECT_EQ(fed.record.at(1).value(TrendSeries::followingError), 4'294'967'295);
    EXPECT_EQ(text(trendBars(fed.pieces(0ms, 10ms, 2), TrendSeries::followingError, 2)),
              "1:4294967295..4294967295");
}

TEST(Trend, KeepsAnHourInBoundedMemoryAndDropsTheOldest) {
    EXPECT_LE(TrendRecord::anHour * sizeof(TrendSample) +
                  TrendRecord::anHour / TrendRecord::blockSize * (sizeof(TrendSummary) + 64),
              32UL << 20);
    EXPECT_GE(TrendRecord::anHour, 100UL * 3600);
    Fed fed(1000);
    for (long pass = 0; pass < 5000; ++pass)
        fed.pass(pass);
    EXPECT_LE(fed.record.size(), 1000U);
    EXPECT_GE(fed.record.size(), 1000U - 2 * TrendRecord::blockSize);
    EXPECT_EQ(fed.record.at(fed.record.size() - 1).position, 4999);
    const std::size_t at = fed.record.firstFrom(start + 45'001ms);
    EXPECT_EQ(fed.record.at(at).position, 4501);
    EXPECT_EQ(fed.record.firstFrom(start), 0U);
    EXPECT_EQ(fed.record.firstFrom(start + 50s), fed.record.size());
}

TEST(Trend, WritesATableWithAnEmptyLineForAGap) {
    Fed fed;
    AxisReading whole = reading(start + 1500ms, "-12", "34", 0x41);
    whole.program = AxisReading::Program{true, true, 7, ProgramState::paused};
    fed.record.add(whole);
    fed.record.startDevice("0,7");
    AxisReading old = reading(start + 3s, "x", "4", 8);
    old.driverEnabled.reset();
    fed.record.add(old);
    EXPECT_EQ(trendCsv(fed.record),
              "time_s,position,encoder,following_error,current_mA,motion,minus_limit,home,"
              "plus_limit,driver,move_mode,output,program,line,device\r\n"
              "1.5000,-12,34,-46,500,minus limit error,0,0,0,1,INC,1,paused,7,01\r\n"
              "\r\n"
              "3.0000,,4,,500,idle,1,0,0,,,,,,\"0,7\"\r\n");
}

TEST(TrendView, StaysAtNowUnlessItIsLedElsewhere) {
    const TrendView::Bounds bounds{start, start + 1h};
    TrendView view;
    view.setSpan(10s, bounds);
    EXPECT_EQ(view.right(bounds.now + 5s), bounds.now + 5s) << "goes with the time";
    view.zoom(0.5, 0.25, bounds);
    EXPECT_EQ(view.span(), TrendView::Span(5s));
    EXPECT_EQ(view.left(bounds.now), bounds.now - 8750ms) << "7.5 s ago stays a quarter across";
    EXPECT_FALSE(view.following());
    view.zoom(100, 0.5, bounds);
    EXPECT_TRUE(view.following()) << "that far out it comes to now";
    view.zoom(100, 0, bounds);
    EXPECT_EQ(view.span(), TrendView::longest);
    view.setSpan(10s, bounds);
    view.moveBack(2h, bounds);
    EXPECT_EQ(view.right(bounds.now), start) << "no further than there is something";
    view.moveBack(-1min, bounds);
    view.setSpan(20s, bounds);
    EXPECT_EQ(view.left(bounds.now), start + 45s) << "about its middle";
    view.pause(bounds.now);
    EXPECT_EQ(view.right(bounds.now + 1min), start + 65s) << "where it was";
    view.resume();
    EXPECT_TRUE(view.following());
}

TEST(TrendScale, IsDividedAsPeopleCount) {
    struct Row {
        double low, high;
        TrendScale fit;
    };
    const Row table[] = {{0, 0, {-1, 1}},           {500, 500, {499, 501}},
                         {-3, 7998, {-2000, 8000}}, {1, 12, {0, 15}},
                         {999, 1001, {999, 1001}},  {-2147483648.0, 2147483647.0, {-3e9, 3e9}}};
    for (const Row& row : table) {
        const std::vector<TrendBar> curve{{0, row.low, row.high}};
        const TrendScale fit = trendFit({&curve});
        EXPECT_EQ(fit, row.fit) << row.low << " to " << row.high << " gives " << fit.low << " to "
                                << fit.high;
    }
    EXPECT_EQ(trendFit({}), TrendScale());
    EXPECT_EQ(trendTimeStep(60s, 6), 10s);
    EXPECT_EQ(trendTimeStep(1h, 5), 15min);
    EXPECT_EQ(trendTimeStep(50ms, 6), 10ms);
    for (const auto& [span, words] : {std::pair<std::chrono::nanoseconds, const char*>{10s, "10 s"},
                                      {1min, "1 min"},
                                      {1h, "1 h"},
                                      {250ms, "250 ms"},
                                      {6400ms, "6.4 s"},
                                      {90s, "1.5 min"}})
        EXPECT_EQ(trendSpanText(span), words);
}

}  // namespace
}  // namespace zlt::test
