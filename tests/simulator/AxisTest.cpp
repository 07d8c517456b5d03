#include <gtest/gtest.h>

#include <string>

#include "simulator/Axis.h"

namespace zlt::sim {
namespace {

using namespace std::chrono_literals;

constexpr Ramp kRamp{1000, 300};

Axis startedAxis(const AxisLayout& layout = {}) {
    Axis axis(layout);
    axis.advance(0ms);
    return axis;
}

TEST(Axis, aMoveFollowsTheTrapezoidAndEndsExactlyOnItsTarget) {
    Axis axis = startedAxis();
    ASSERT_TRUE(axis.moveTo(1000, kRamp));
    axis.advance(100ms);
    EXPECT_EQ(axis.status(), 3U) << "speeding up";
    axis.advance(300ms);
    EXPECT_NEAR(static_cast<double>(axis.counter()), 150, 2) << "half of speed times time";
    axis.advance(600ms);
    EXPECT_EQ(axis.status(), 1U) << "full speed";
    axis.advance(1200ms);
    EXPECT_EQ(axis.status(), 5U) << "slowing down";
    axis.advance(1320ms);
    EXPECT_EQ(axis.status(), 0U);
    EXPECT_EQ(axis.counter(), 1000);
    EXPECT_EQ(axis.encoder(), 1000);
}

TEST(Axis, theSameMoveInOneStrideOrInSmallOnes) {
    Axis coarse = startedAxis();
    Axis fine = startedAxis();
    coarse.moveTo(-1500, kRamp);
    fine.moveTo(-1500, kRamp);
    for (int i = 0; i <= 9000; ++i) {
        fine.advance(i * 137us);
        if (i % 3000 == 0) {
            coarse.advance(i * 137us);
            EXPECT_EQ(coarse.counter(), fine.counter()) << i;
        }
    }
    EXPECT_NE(fine.counter(), 0);
}

TEST(Axis, stopRampsDownAndAbortDoesNot) {
    for (const bool ramp : {true, false}) {
        Axis axis = startedAxis();
        axis.jog(Direction::Minus, kRamp);
        axis.advance(500ms);
        const auto before = axis.counter();
        ramp ? axis.stop() : axis.abort();
        EXPECT_EQ(axis.moving(), ramp);
        axis.advance(510ms);
        EXPECT_EQ(axis.status(), ramp ? 5U : 0U);
        axis.advance(2000ms);
        EXPECT_FALSE(axis.moving());
        EXPECT_NEAR(static_cast<double>(before - axis.counter()), ramp ? 150 : 0, 3);
    }
}

TEST(Axis, aLimitEndsTheMoveAndBarsThatWayUntilCleared) {
    Axis axis = startedAxis({-100, 300, 50, 10, 800});
    axis.jog(Direction::Plus, kRamp);
    axis.advance(5s);
    EXPECT_EQ(axis.counter(), 300);
    EXPECT_EQ(axis.status(), 16U | 128U);
    EXPECT_FALSE(axis.jog(Direction::Plus, kRamp));
    ASSERT_TRUE(axis.moveTo(299, kRamp)) << "the way back is free";
    axis.advance(6s);
    EXPECT_EQ(axis.status(), 128U) << "the error stays";
    axis.clearErrors();
    EXPECT_TRUE(axis.jog(Direction::Plus, kRamp));
    axis.advance(7s);
    EXPECT_EQ(axis.status(), 16U | 128U) << "met again";
}

TEST(Axis, disabledLimitsOnlyLightTheirLamp) {
    Axis axis = startedAxis({-100, 300, 50, 10, 800});
    axis.setLimitsDisabled(true);
    axis.moveTo(-500, kRamp);
    axis.advance(5s);
    EXPECT_EQ(axis.counter(), -500);
    EXPECT_EQ(axis.status(), 8U);
}

TEST(Axis, whatRefusesAMove) {
    Axis axis = startedAxis();
    EXPECT_FALSE(axis.jog(Direction::Plus, {0, 300})) << "no speed";
    axis.setEnabled(false);
    EXPECT_FALSE(axis.home(Homing::Index, Direction::Plus, kRamp, 0)) << "no power";
    axis.setEnabled(true);
    EXPECT_TRUE(axis.moveTo(100, kRamp));
    EXPECT_FALSE(axis.moveTo(0, kRamp)) << "moving";
    axis.advance(50ms);
    axis.setEnabled(false);
    EXPECT_FALSE(axis.moving()) << "power lost on the way";
}

TEST(Axis, speedChangesOnTheFly) {
    Axis axis = startedAxis();
    EXPECT_FALSE(axis.changeSpeed(500)) << "nothing moves";
    axis.jog(Direction::Plus, kRamp);
    axis.advance(1s);
    ASSERT_TRUE(axis.changeSpeed(200));
    axis.advance(2s);
    const auto before = axis.counter();
    axis.advance(3s);
    EXPECT_NEAR(static_cast<double>(axis.counter() - before), 200, 1);
}

struct HomingCase {
    std::string name;
    Homing kind;
    Direction direction;
    std::int64_t machine;  // where it stands in the end, on the machine
    std::int64_t counter;  // what the counter says there
    unsigned status;
    std::int64_t tolerance;  // of a ramp that is cut into milliseconds
};

class AxisHoming : public testing::TestWithParam<HomingCase> {};

TEST_P(AxisHoming, endsWhereItsEdgeIs) {
    const HomingCase& expected = GetParam();
    Axis axis = startedAxis({-1000, 1500, -400, 100, 250});
    ASSERT_TRUE(axis.home(expected.kind, expected.direction, kRamp, 200));
    axis.advance(60s);
    EXPECT_EQ(axis.status(), expected.status);
    EXPECT_NEAR(static_cast<double>(axis.counter()), static_cast<double>(expected.counter),
                static_cast<double>(expected.tolerance));
    // The way to a limit tells where on the machine the axis stands.
    const auto here = axis.counter();
    axis.clearErrors();
    axis.jog(Direction::Plus, kRamp);
    axis.advance(120s);
    EXPECT_NEAR(static_cast<double>(1500 - (axis.counter() - here)),
                static_cast<double>(expected.machine), static_cast<double>(expected.tolerance));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, AxisHoming,
    testing::Values(HomingCase{"H", Homing::HomeSwitch, Direction::Minus, -450, -150, 0, 3},
                    HomingCase{"HL", Homing::HomeSwitchLowSpeed, Direction::Minus, -300, 0, 32, 0},
                    HomingCase{"L", Homing::Limit, Direction::Minus, -800, 0, 0, 0},
                    HomingCase{"ZH", Homing::HomeSwitchAndIndex, Direction::Minus, -500, 0, 0, 0},
                    HomingCase{"Z", Homing::Index, Direction::Plus, 250, 0, 0, 0},
                    HomingCase{"wrongWay", Homing::HomeSwitch, Direction::Plus, 1500, 1500,
                               16 | 128, 0}),
    [](const auto& each) { return each.param.name; });

TEST(Axis, aNarrowSwitchIsNotOverrunAtHighSpeed) {
    Axis axis = startedAxis({-2000000, 2000000, 50005, 1, 800});
    axis.home(Homing::HomeSwitch, Direction::Plus, {1000000, 10}, 0);
    axis.advance(1s);
    EXPECT_EQ(axis.status(), 0U);
    EXPECT_LT(axis.counter(), 10000) << "zero at the switch, then the ramp";
}

}  // namespace
}  // namespace zlt::sim
