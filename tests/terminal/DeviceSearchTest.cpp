#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QProgressBar>
#include <filesystem>
#include <set>

#include "app/SelectComForm.h"
#include "link/DeviceSearch.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {
namespace {

using Texts = std::vector<std::string>;
using State = DeviceSearch::State;

/// All ports of a machine, worked by one port object.
class Machine : public Port {
 public:
    std::set<int> ports;
    /// What comes back on a request; `where` is "3 9600".
    std::function<std::string(const std::string& where, const std::string& request)> reply;
    std::string stream;   ///< read over and over, without an end
    std::string losesAt;  ///< "3 9600" at its opening, "3 9600 @02DN" at that probe
    bool losesWhileReading = false;

    Texts probes;
    int emptyReads = 0, charactersRead = 0;

    bool open(PortNumber number, std::string_view settings) override {
        EXPECT_TRUE(settings.ends_with(",N,8,1"));
        m_where = std::to_string(number.value) + " " +
                  std::string(settings.substr(0, settings.find(',')));
        m_open = ports.contains(number.value) && m_where != losesAt;
        return m_open;
    }
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    bool write(std::string_view bytes) override {
        EXPECT_TRUE(m_open);
        EXPECT_TRUE(bytes.ends_with('\r'));
        const std::string request(bytes.substr(0, bytes.size() - 1));
        probes.push_back(m_where + " " + request);
        m_losing = probes.back() == losesAt;
        m_open = m_open && (!m_losing || losesWhileReading);
        if (reply)
            m_input += reply(m_where, request);
        return m_open;
    }
    PortInput read(char& character) override {
        if (m_losing)
            close();
        if (!m_open)
            return PortInput::lost;
        if (m_input.empty())
            m_input = stream;
        if (m_input.empty()) {
            ++emptyReads;
            return PortInput::nothing;
        }
        ++charactersRead;
        character = m_input.front();
        m_input.erase(0, 1);
        return PortInput::character;
    }
    PortInput waitForInput(std::chrono::milliseconds) override { return PortInput::nothing; }
    std::string errorText() const override { return {}; }

 private:
    std::string m_where, m_input;
    bool m_open = false, m_losing = false;
};

struct Search : SearchView {
    void showText(std::string_view text) override { texts.emplace_back(text); }
    void showProgress(int now, int most) override {
        EXPECT_LE(now, most);
        EXPECT_GE(now, value);
        value = now;
        maximum = most;
    }
    State run(SearchMode mode) {
        DeviceSearch search(machine, mode, *this);
        State state = State::running;
        for (steps = 0; state == State::running && steps < 10'000; ++steps)
            state = search.step();
        EXPECT_FALSE(machine.isOpen());
        found = search.found();
        results = search.results();
        return state;
    }

    Machine machine;
    Texts texts;
    int value = 0, maximum = 0, steps = 0;
    std::optional<Connection> found;
    std::string results;
};

TEST(DeviceSearch, GoesThroughPortsRatesAndIdsOneStepATick) {
    Search search;
    search.machine.ports = {2, 15};
    EXPECT_EQ(search.run(SearchMode::firstFound), State::over);
    EXPECT_FALSE(search.found);
    EXPECT_EQ(search.texts[0], "Checking Port 1");
    EXPECT_EQ(search.texts[14], "Checking Port 15");
    EXPECT_EQ(search.texts[15], "Found Port 2.");
    EXPECT_EQ(search.texts[16], "Trying Port 2, Baud:9600");
    EXPECT_EQ(search.texts[17], "Trying Port 2, Baud:9600 ID:01");
    EXPECT_EQ(search.texts[25], "Trying Port 2, Baud:9600 ID:09");
    EXPECT_EQ(search.texts[26], "Trying Port 2, Baud:19200");
    EXPECT_EQ(search.texts.back(), "Trying Port 15, Baud:115200 ID:09");
    EXPECT_EQ(search.machine.probes.size(), 90U);
    EXPECT_EQ(search.machine.probes[9], "2 19200 @01DN");
    EXPECT_EQ(search.machine.emptyReads, 90 * 31);
    EXPECT_EQ(search.steps, 15 + 15 + 2 * 5 * (1 + 9)) << "skipping a port takes a tick too";
    EXPECT_EQ(search.value, 15 * 30 + 2 * (30 + 5 * 10));
    EXPECT_EQ(search.maximum, search.value) << "the bar is full at the end";
}

TEST(DeviceSearch, StopsAtTheFirstNameAnywhereInAReply) {
    for (const char* reply : {"ZLD04\r", "#04ZLD04\r", "noise\rxZLDx\rZLD05\r", "\r\rZLD\n\r"}) {
        Search search;
        search.machine.ports = {1, 7};
        search.machine.reply = [&](const std::string& where, const std::string& request) {
            return where == "7 57600" && request == "@04DN" ? reply : "";
        };
        EXPECT_EQ(search.run(SearchMode::firstFound), State::over);
        ASSERT_TRUE(search.found) << reply;
        EXPECT_EQ(searchResultText(*search.found), "7 Baud:57600 ID:04");
        EXPECT_EQ(search.results, "");
        EXPECT_EQ(search.machine.probes.back(), "7 57600 @04DN");
    }
}

TEST(DeviceSearch, ListsEachControllerOnce) {
    Search search;
    search.machine.ports = {1, 3};
    search.machine.reply = [](const std::string& where, const std::string& request) {
        const std::string at = where + request;
        if (at == "1 9600@01DN")
            return "ZLD01\rZLD01\r";
        return at == "3 19200@02DN" ? "ZLD02\r" : at == "3 19200@09DN" ? "?\rZLD09\r" : "ZL\r";
    };
    EXPECT_EQ(search.run(SearchMode::all), State::over);
    EXPECT_EQ(search.results,
              "Found on Com Port:1 Baud:9600 ID:01\r\nFound on Com Port:3 Baud:19200 ID:02\r\n"
              "Found on Com Port:3 Baud:19200 ID:09\r\n");
    EXPECT_FALSE(search.found);
    EXPECT_EQ(search.machine.probes.size(), 90U);
}

TEST(DeviceSearch, IsNotHeldByALineThatStreams) {
    for (const char* stream : {"A", "\r", "1.5 mm\r\n"}) {
        Search search;
        search.machine.ports = {1};
        search.machine.stream = stream;
        EXPECT_EQ(search.run(SearchMode::all), State::over);
        EXPECT_EQ(search.machine.probes.size(), 45U);
        EXPECT_LE(search.machine.charactersRead, 45 * (4096 + 1));
    }
}

TEST(DeviceSearch, GivesUpAPortThatGoesAway) {
    for (const auto& [at, whileReading] :
         {std::pair{"2 19200", false}, {"2 19200 @03DN", false}, {"2 19200 @03DN", true}}) {
        Search search;
        search.machine.ports = {2, 4};
        search.machine.losesAt = at;
        search.machine.losesWhileReading = whileReading;
        search.machine.reply = [](const std::string& where, const std::string& request) {
            return where + request == "4 9600@01DN" ? "ZLD01\r" : "";
        };
        EXPECT_EQ(search.run(SearchMode::firstFound), State::over);
        ASSERT_TRUE(search.found) << at;
        EXPECT_EQ(search.found->port, PortNumber{4});
        EXPECT_LE(search.machine.probes.size(), 9U + 3U + 1U);
    }
}

/// The search as the operator meets it, from the start-up screen.
class SearchTest : public ::testing::Test, public World {
 protected:
    SearchTest() {
        form.Form_Load();
        form.show();
    }
    /// Presses a search button; `atTick` acts before each tick of the progress screen.
    void search(const char* button, const std::function<void(QWidget&, int)>& atTick = {}) {
        QTimer::singleShot(0, &form, [&] {
            QWidget& screen = *QApplication::activeModalWidget();
            for (ticks = 0; screen.isVisible(); ++ticks) {
                if (atTick)
                    atTick(screen, ticks);
                tick(screen, "StatusTimer");
            }
        });
        click(form, button);
        EXPECT_EQ(bus.portsOpen, 0);
        EXPECT_FALSE(std::filesystem::exists("zlt-r-485.ini"));
    }
    std::string shown() {
        return textOf(form, "combo") + "|" + textOf(form, "baudCom") + "|" +
               textOf(form, "DeviceIDCombo");
    }
    void answerAt(const std::string& opening, const std::string& request) {
        bus.answer = [=, this](const std::string& sent) -> std::optional<std::string> {
            if (bus.openings.back() == opening && sent == request)
                return "ZLD";
            return std::nullopt;
        };
    }

    int ticks = 0;
    SelectComForm form{services, directory};
};

TEST_F(SearchTest, PutsTheFirstFindIntoTheBoxes) {
    answerAt("12 38400,N,8,1", "@09DN");
    gate.expectMessage("ZLT-R-NX Found on Port:12 Baud:38400 ID:09");
    search("SearchZLT");
    EXPECT_EQ(shown(), "COM12|38400|09");
    EXPECT_EQ(control<QComboBox>(form, "combo").currentIndex(), 11);

    answerAt("12 38400,N,8,1", "@10DN");
    gate.expectMessage("Device not found!  Please check wiring and power inputs");
    search("SearchZLT");
    EXPECT_EQ(shown(), "COM12|38400|09") << "as it was";
}

TEST_F(SearchTest, ListsAllFinds) {
    gate.expectMessage("No device found!");
    bus.silent = true;
    search("SearchAllZLT");
    answerAt("2 115200,N,8,1", "@03DN");
    gate.expectMessage("Found on Com Port:2 Baud:115200 ID:03\r\n");
    search("SearchAllZLT");
    EXPECT_EQ(shown(), "COM1|9600|01");
}

TEST_F(SearchTest, SaysOnlyThatThereIsNoPort) {
    bus.opens = false;
    for (const char* button : {"SearchZLT", "SearchAllZLT"}) {
        gate.expectMessage("No Port Available!");
        search(button);
        EXPECT_EQ(ticks, 16);
    }
}

TEST_F(SearchTest, EndsOnCancelWithWhatItHas) {
    answerAt("1 9600,N,8,1", "@02DN");
    const auto cancelAt = [&](int tickNumber, bool byFrame) {
        return [=](QWidget& screen, int number) {
            if (number != tickNumber)
                return;
            EXPECT_EQ(textOf(screen, "ProgressLabel"), "Trying Port 1, Baud:9600 ID:02");
            EXPECT_EQ(control<QProgressBar>(screen, "Progress").value(), 450 + 30 + 10);
            press(screen, "Cancel", Qt::Key_Escape);
            press(screen, "Cancel", Qt::Key_Return);
            byFrame ? void(screen.close()) : click(screen, "Cancel");
            EXPECT_TRUE(screen.isVisible()) << "until the next tick";
        };
    };
    gate.expectMessage("Found on Com Port:1 Baud:9600 ID:02\r\n");
    search("SearchAllZLT", cancelAt(19, false));
    EXPECT_EQ(ticks, 20);
    bus.silent = true;
    bus.answer = {};
    gate.expectMessage("Device not found!  Please check wiring and power inputs");
    search("SearchZLT", cancelAt(19, true));
}

}  // namespace
}  // namespace zlt::test
