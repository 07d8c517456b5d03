// Search, terminal and monitor over real pseudo-terminals, against the simulator.

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <fstream>
#include <set>

#include "link/SearchCom.h"
#include "support/FormDriver.h"
#include "support/RealWorld.h"
#include "support/SimulatedBus.h"
#include "terminal/CommandLine.h"
#include "terminal/TerminalForm.h"
#include "terminal/Transcript.h"
#include "terminal/VariableForm.h"

namespace zlt::test {
namespace {

class TalkSystemTest : public ::testing::Test, public RealWorld {
 protected:
    static bool wait(const std::function<bool()>& condition, int milliseconds = 10'000) {
        return QTest::qWaitFor(condition, milliseconds);
    }
    void list(std::initializer_list<std::pair<int, const SimulatedBus*>> ports) {
        std::ofstream file("zlt-r-485.ports");
        for (const auto& [number, simulator] : ports)
            file << portText({number}) << "=" << simulator->device() << "\n";
        file.close();
        directory.refresh();
    }

    LinkHandOver handedOver{true, true, {{1}, "9600", "01"}, {}};
};

TEST_F(TalkSystemTest, FindsControllersAtTheirOwnRates) {
    const auto controllers = [](std::initializer_list<const char*> lines) {
        QStringList options{QStringLiteral("--unpaced")};
        for (const char* line : lines)
            options << QStringLiteral("--controller") << QString::fromLatin1(line);
        return options;
    };
    SimulatedBus slow(controllers({"id=10", "id=2,baud=19200", "id=3,baud=19200"}));
    SimulatedBus fast(controllers({"id=9,baud=57600,rt=1"}));
    list({{2, &slow}, {5, &fast}});
    SearchCom screen(real, SearchMode::all, nullptr);
    screen.Form_Load();
    screen.show();
    while (screen.isVisible())
        tick(screen, "StatusTimer");  // faster than its own pace
    EXPECT_EQ(screen.search().results(),
              "Found on Com Port:2 Baud:19200 ID:02\r\nFound on Com Port:2 Baud:19200 ID:03\r\n"
              "Found on Com Port:5 Baud:57600 ID:09\r\n");
}

TEST_F(TalkSystemTest, SearchesAtItsPaceAndLeavesThePortFree) {
    SimulatedBus simulator;
    list({{1, &simulator}});
    SearchCom screen(real, SearchMode::firstFound, nullptr);
    QElapsedTimer time;
    time.start();
    screen.Form_Load();
    screen.show();
    ASSERT_TRUE(wait([&] { return !screen.isVisible(); }));
    EXPECT_GE(time.elapsed(), 1750) << "fifteen ports, found, rate, probe";
    EXPECT_LT(time.elapsed(), 4000);
    ASSERT_TRUE(screen.search().found());
    QtSerialPort port(directory);
    EXPECT_TRUE(port.open({1}, "9600,N,8,1"));
}

TEST_F(TalkSystemTest, ShowsAReplyAsItGrows) {
    SimulatedBus simulator;
    list({{1, &simulator}});
    TerminalForm form(real, handedOver, nullptr);
    form.Form_Load();
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    simulator.say("drip 30");
    simulator.say("answer ID=abcdef");
    auto& pad = control<Transcript>(form, "Pad");

    struct Paints : QObject {
        explicit Paints(Transcript& transcript) : pad(transcript) {}
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint)
                shown.insert(pad.toPlainText().section(QLatin1Char('<'), 1).trimmed());
            return false;
        }
        Transcript& pad;
        std::set<QString> shown;
    } paints(pad);
    pad.viewport()->installEventFilter(&paints);
    control<CommandLine>(form, "SendText").setText(QStringLiteral("ID"));
    press(form, "SendText", Qt::Key_Return);
    for (const char* part : {"", "a", "ab", "abc", "abcd", "abcde", "abcdef"})
        EXPECT_TRUE(paints.shown.contains(QLatin1String(part))) << part;
    EXPECT_EQ(pad.text(), ">@01ID\r\n<abcdef\r\n");

    simulator.say("hangup");
    QTest::qWait(50);
    control<CommandLine>(form, "SendText").setText(QStringLiteral("PX"));
    press(form, "SendText", Qt::Key_Return);
    EXPECT_EQ(pad.text(), ">@01ID\r\n<abcdef\r\n>@01PX\r\n<Com Port Error\r\n");
}

TEST_F(TalkSystemTest, KeepsTypingAndRefreshApartUntilTheDeviceFallsSilent) {
    SimulatedBus simulator({QStringLiteral("--controller"), QStringLiteral("id=1,baud=57600")});
    list({{1, &simulator}});
    handedOver.connection.baudRate = "57600";
    VariableForm form(real, handedOver, nullptr);
    form.Form_Load();
    form.show();
    auto& line = control<CommandLine>(form, "SendText");
    for (int value = 1; value <= 3; ++value) {
        const QString command = QStringLiteral("V16=%1").arg(value * 111);
        for (const QChar character : command) {
            QTest::keyClick(&line, character.toLatin1());
            QTest::qWait(1);
        }
        QTest::keyClick(&line, Qt::Key_Return);
        EXPECT_TRUE(wait([&] { return textOf(form, "V16") == std::to_string(value * 111); }));
    }
    gate.expectMessageWith("No Reply to Command: V");
    simulator.say("silent");
    EXPECT_TRUE(wait([&] { return !control<QTimer>(form, "Timer1").isActive(); }));
    EXPECT_EQ(textOf(form, "V0") + textOf(form, "V16") + textOf(form, "V31"), "000");
    click(form, "Close");
    EXPECT_FALSE(form.isVisible());
}

}  // namespace
}  // namespace zlt::test
