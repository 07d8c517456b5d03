// What the panel shows as live: only what a whole pass in step with the controller has read.

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <map>
#include <set>
#include <utility>

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
    EXPECT_EQ(sentBy("EnableStat"), "EO|EO=0") << "dimmed, but to be clicked";
    EXPECT_EQ(sentBy("EnableStat"), "EO");
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

/// The strongest colour of a control's: how far from its ground anything of it stands off.
int contrast(const QImage& image) {
    const QColor ground = image.pixelColor(image.width() - 1, 0);
    int most = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            most = std::max(most, std::abs(qGray(image.pixel(x, y)) - qGray(ground.rgb())));
    return most;
}

TEST_F(LiveReadingTest, IsDimmedWhileABoxHoldsThePollOff) {
    gate.expectMessage("Cannot set while running!", [this] { EXPECT_EQ(live(), ""); });
    click(form, "OnScurve");
    EXPECT_EQ(live(), "");
    sentByTick();
    EXPECT_EQ(live(), all());
}

TEST_F(LiveReadingTest, DimsTheDriversMarkAsMuchAsItsWord) {
    const auto halves = [this] {
        const QImage whole = look("EnableStat");
        const int mark = whole.height();
        return std::pair(contrast(whole.copy(0, 0, mark, mark)),
                         contrast(whole.copy(mark, 0, whole.width() - mark, mark)));
    };
    const auto before = halves();
    bus.silentAt = "CLR";
    click(form, "clear");
    const auto after = halves();
    EXPECT_LT(after.first, before.first / 2);
    EXPECT_LT(after.second, before.second / 2);
}

TEST_F(LiveReadingTest, ShowsRedForALimitThatIsMetAlone) {
    const auto redness = [this](const char* lamp) {
        const QImage image = look(lamp);
        const QColor fill = image.pixelColor(image.rect().center());
        return fill.red() - std::max(fill.green(), fill.blue());
    };
    for (const char* lamp : {"NegLim", "PosLim"})
        EXPECT_GT(redness(lamp), 100) << lamp;
    for (const char* lamp : {"Home", "InPosDO"})
        EXPECT_LT(redness(lamp), 0) << lamp;
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

/// A panel one of whose replies comes late: after its own time-out, ahead of the next one.
struct LatePanel : PanelWorld {
    explicit LatePanel(const char* version) {
        bus.replies["EX"] = "34 cts";  // no number, and shown as it stands
        bus.replies["MST"] = "1";
        bus.replies["MM"] = "1";
        bus.replies["SASTAT"] = "2";
        load(version);
        sentByTick();
        m_live = textColour();
        m_values = values();
        bus.answer = [this](const std::string& request) -> std::optional<std::string> {
            const std::string command = request.substr(3);
            if (std::exchange(lostAt, command == lostAt ? "" : lostAt) == command)
                return std::nullopt;
            if (!m_late.empty())
                bus.feed(std::exchange(m_late, "") + "\r");
            if (std::exchange(lateAt, command == lateAt ? "" : lateAt) != command)
                return bus.usualReply(request);
            m_late = bus.usualReply(request);
            return std::nullopt;
        };
    }
    bool looksLive() { return textColour() == m_live; }
    bool valuesAreRight() { return values() == m_values; }

    std::string lostAt, lateAt;  ///< the next command that loses its reply, or has it late

 private:
    QColor textColour() { return control<QWidget>(form, "Pos").palette().color(QPalette::Text); }
    std::string values() {
        std::string texts;
        for (const char* name : {"ID", "Version", "Current", "Pos", "EncPos", "Stat", "EnableStat",
                                 "MoveMode", "ProgIndex", "ProgStatus"})
            texts += shown(name) + "|";
        return texts;
    }

    QColor m_live;
    std::string m_values, m_late;
};

TEST(LateReply, IsSurvivedAndNeverShownAsALiveValueOfAnotherCommand) {
    struct Row {
        const char* lateAt;
        const char* button = nullptr;  ///< is clicked first
        const char* lostAt = "";       ///< falls silent before that, so that the panel probes
    };
    const auto table = [](const std::string& firmware) {
        std::vector<Row> rows{{"DN", nullptr, "CUR"}, {"VER", nullptr, "CUR"},
                              {"ID", nullptr, "CUR"}, {"HSPD=5000", "JOGP"},
                              {"ACC=250", "JOGP"},    {"J+", "JOGP"},
                              {"X8000", "Command5"},  {"X0", "Command5"}};
        for (const char* command : {"CUR", "PX", "EX", "MST", "EO"})
            rows.push_back({command});
        if (firmware != "V316")
            for (const char* command : {"MM", "DO", "SPC", "SASTAT"})
                rows.push_back({command});
        return rows;
    };
    for (const char* version : {"V316", "V322"})
        for (const Row& row : table(version)) {
            SCOPED_TRACE(std::string(version) + " " + row.lateAt);
            LatePanel panel(version);
            panel.lostAt = row.lostAt;
            panel.lateAt = row.lateAt;
            if (row.button)
                click(panel.form, row.button);
            int ticks = 0;
            do {
                panel.sentByTick();
                EXPECT_TRUE(!panel.looksLive() || panel.valuesAreRight());
            } while (++ticks < 7 && (!panel.lateAt.empty() || !panel.looksLive()));
            EXPECT_FALSE(panel.programEnd.ended());
            EXPECT_EQ(panel.lateAt, "");
            EXPECT_TRUE(panel.looksLive());
        }
}

}  // namespace
}  // namespace zlt::test
