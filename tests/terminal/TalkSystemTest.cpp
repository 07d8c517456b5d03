// Search and monitor over real pseudo-terminals, against the simulator.

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLineEdit>

#include "app/SearchCom.h"
#include "support/FormDriver.h"
#include "support/RealWorld.h"
#include "support/SimulatedBus.h"
#include "terminal/forms/VariableForm.h"

namespace zlt::test {
namespace {

TEST(TalkSystemTest, FindsAControllerAtItsOwnRateAndLeavesThePortFree) {
    RealWorld world;
    SimulatedBus simulator({QStringLiteral("--unpaced"), QStringLiteral("--controller"),
                            QStringLiteral("2,baud=19200,rt=1")});
    world.listPort(simulator.device());
    SearchCom screen(world.real, SearchMode::firstFound, nullptr);
    QElapsedTimer time;
    time.start();
    screen.Form_Load();
    screen.show();
    EXPECT_TRUE(world.wait([&] { return !screen.isVisible(); }));
    EXPECT_GE(time.elapsed(), 2800) << "29 steps, with 11 probes in them";
    ASSERT_TRUE(screen.search().found());
    EXPECT_EQ(searchResultText(*screen.search().found()), "1 Baud:19200 ID:02");
    EXPECT_TRUE(makeSystemPort(world.directory)->open({1}, "9600"));
}

TEST(TalkSystemTest, KeepsTypingAndRefreshApartUntilTheDeviceFallsSilent) {
    RealWorld world;
    SimulatedBus simulator({QStringLiteral("--controller"), QStringLiteral("1,baud=57600")});
    world.listPort(simulator.device());
    VariableForm form(world.real, {true, true, {{1}, "57600", "01"}, {}}, nullptr);
    form.Form_Load();
    form.show();
    auto& line = control<QLineEdit>(form, "SendText");
    for (const char* value : {"111", "222", "333"}) {
        QTest::keyClicks(&line, QStringLiteral("V16=") + QLatin1String(value), {}, 1);
        QTest::keyClick(&line, Qt::Key_Return);
        EXPECT_TRUE(world.wait([&] { return textOf(form, "V16") == value; }));
    }
    world.gate.expectMessageWith("No Reply to Command: V");
    simulator.say("silent");
    EXPECT_TRUE(world.wait([&] { return shownOn(form, "Timer1") == "off"; }));
    EXPECT_EQ(textOf(form, "V0") + textOf(form, "V16") + textOf(form, "V31"), "000");
}

}  // namespace
}  // namespace zlt::test
