// Search, terminal and monitor over real pseudo-terminals, against the simulator.

#include <QElapsedTimer>
#include <QTest>
#include <fstream>
#include <set>

#include "link/SearchCom.h"
#include "support/RealWorld.h"
#include "support/SimulatedBus.h"
#include "terminal/Entering.h"
#include "terminal/TerminalForm.h"
#include "terminal/Transcript.h"
#include "terminal/VariableForm.h"

namespace zlt::test {
namespace {

class TalkSystemTest : public ::testing::Test, public RealWorld {
 protected:
    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 10'000);
    }
    static QStringList words(const char* options) {
        return QString::fromLatin1(options).split(QLatin1Char(' '));
    }
    void list(int number, const SimulatedBus& simulator) {
        std::ofstream("zlt-r-485.ports") << "COM" << number << "=" << simulator.device() << "\n";
        directory.refresh();
    }

    LinkHandOver handedOver{true, true, {{1}, "9600", "01"}, {}};
};

TEST_F(TalkSystemTest, FindsAControllerAtItsOwnRateAndLeavesThePortFree) {
    SimulatedBus simulator(words("--unpaced --controller 10 --controller 2,baud=19200,rt=1"));
    list(2, simulator);
    for (const bool ownPace : {true, false}) {
        SearchCom screen(real, SearchMode::firstFound, nullptr);
        QElapsedTimer time;
        time.start();
        screen.Form_Load();
        screen.show();
        while (!ownPace && screen.isVisible())
            tick(screen, "StatusTimer");
        ASSERT_TRUE(wait([&] { return !screen.isVisible(); }));
        EXPECT_GE(time.elapsed(), ownPace ? 2900 : 600) << "30 steps, and 10 probes of 31 x 2 ms";
        ASSERT_TRUE(screen.search().found());
        EXPECT_EQ(searchResultText(*screen.search().found()), "2 Baud:19200 ID:02");
    }
    QtSerialPort port(directory);
    EXPECT_TRUE(port.open({2}, "9600,N,8,1"));
}

/// Every state of a reply that was painted.
class Paints : public QObject {
 public:
    explicit Paints(Transcript& pad) : m_pad(pad) { pad.viewport()->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            shown.insert(m_pad.toPlainText().section(QLatin1Char('<'), 1).trimmed());
        return false;
    }
    std::set<QString> shown;

 private:
    Transcript& m_pad;
};

TEST_F(TalkSystemTest, ShowsAReplyAsItGrows) {
    SimulatedBus simulator;
    list(1, simulator);
    TerminalForm form(real, handedOver, nullptr);
    form.Form_Load();
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    simulator.say("drip 30\nanswer ID=abcdef");
    const Paints paints(control<Transcript>(form, "Pad"));
    enter(form, "SendText", "ID");
    for (const char* part : {"", "a", "ab", "abc", "abcd", "abcde", "abcdef"})
        EXPECT_TRUE(paints.shown.contains(QLatin1String(part))) << part;
}

TEST_F(TalkSystemTest, KeepsTypingAndRefreshApartUntilTheDeviceFallsSilent) {
    SimulatedBus simulator(words("--controller 1,baud=57600"));
    list(1, simulator);
    handedOver.connection.baudRate = "57600";
    VariableForm form(real, handedOver, nullptr);
    form.Form_Load();
    form.show();
    auto& line = control<QLineEdit>(form, "SendText");
    for (const char* value : {"111", "222", "333"}) {
        QTest::keyClicks(&line, QStringLiteral("V16=") + QLatin1String(value), {}, 1);
        QTest::keyClick(&line, Qt::Key_Return);
        EXPECT_TRUE(wait([&] { return textOf(form, "V16") == value; }));
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
