// What the panel shows as live: only what a whole pass in step with the controller has read.

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <map>
#include <set>

#include "support/PanelWorld.h"

namespace zlt::test {
namespace {

/// Notes which of the controls it watches are painted.
class PaintWatch : public QObject {
 public:
    std::set<std::string> painted;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted.insert(watched->objectName().toStdString());
        return false;
    }
};

class LiveReadingTest : public ::testing::Test, public PanelWorld {
 protected:
    static constexpr const char* readOuts[] = {"Pos",        "Stat",    "ProgStatus",
                                               "NegLim",     "PosLim",  "Home",
                                               "EnableStat", "InPosDO", "ReceiveTerminalText"};

    LiveReadingTest() {
        bus.replies["MST"] = "57";  // moving, on every switch
        bus.replies["DO"] = "1";
        load();
        control<QLineEdit>(form, "SendTerminalText").setText(QStringLiteral("PX"));
        press(form, "SendTerminalText", Qt::Key_Return);
        sentByTick();
        for (const char* name : readOuts)
            m_live[name] = look(name);
    }
    QImage look(const char* name) { return control<QWidget>(form, name).grab().toImage(); }

    /// The read-outs that look as they did after the first pass.
    std::string live() {
        std::string names;
        for (const auto& [name, look] : m_live)
            if (this->look(name.c_str()) == look)
                names += name + " ";
        return names;
    }
    std::string all() {
        std::string names;
        for (const auto& [name, look] : m_live)
            names += name + " ";
        return names;
    }

 private:
    std::map<std::string, QImage> m_live;
};

TEST_F(LiveReadingTest, IsDimmedUntilAWholePassHasBeenRead) {
    bus.silentAt = "CLR";
    EXPECT_EQ(sentBy("clear"), "CLR");
    EXPECT_EQ(live(), "") << "a click has met the silence";
    EXPECT_EQ(sentByTick(), "DN|VER|ID");
    EXPECT_EQ(live(), "") << "a probe reads nothing of it";
    sentByTick();
    EXPECT_EQ(live(), all());

    gate.expectOpenDialog(
        {"Open ZLT-R-NX Program", "ZLT-R-NX Program Files (*.prg)|*.prg", "*.prg"}, std::nullopt,
        [this] { EXPECT_EQ(live(), ""); });
    click(form, "OpenProg");
    EXPECT_EQ(live(), "");
    sentByTick();
    EXPECT_EQ(live(), all());

    choose(form, "SelectedDeviceID", "02");
    EXPECT_EQ(live(), "") << "another device's values";
    bus.silentAt = "SASTAT";
    sentByTick();
    EXPECT_EQ(live(), "") << "not a whole pass";
    bus.silentAt.reset();
    sentByTick();
    sentByTick();
    EXPECT_EQ(live(), all());
}

TEST_F(LiveReadingTest, IsDimmedAtTheFirstTimeOutNotAtTheEndOfThePass) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    PaintWatch watch;
    for (const char* name : readOuts)
        control<QWidget>(form, name).installEventFilter(&watch);
    bus.answer = [&](const std::string& request) -> std::optional<std::string> {
        if (request == "@01PX") {
            for (const char* name : readOuts)
                EXPECT_TRUE(watch.painted.contains(name)) << name;
            EXPECT_EQ(live(), "");
            EXPECT_EQ(backgroundOf(form, "ComStatusDisplay"), QColor(255, 0, 0));
            EXPECT_EQ(shown("Pos"), "-12") << "as read last";
        }
        return std::nullopt;
    };
    sentByTick();
    EXPECT_EQ(shown("Pos"), "0");
    EXPECT_EQ(live(), "");
}

}  // namespace
}  // namespace zlt::test
