// The search as the operator meets it, from the start-up screen.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTest>
#include <filesystem>
#include <set>

#include "app/SelectComForm.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {
namespace {

const char* const notFound = "Device not found!  Please check wiring and power inputs";

class SearchTest : public ::testing::Test, public World {
 protected:
    SearchTest() {
        bus.answer = [this](const std::string& request) -> std::optional<std::string> {
            const std::string& opening = bus.openings.back();
            const auto found = answers.find(opening.substr(0, opening.find(',')) + " " + request);
            return found == answers.end() ? std::nullopt : std::optional(found->second);
        };
        form.Form_Load();
        form.show();
    }
    /// Presses a search button and ticks the search to its end, which `message` must tell;
    /// `atTick` acts before each tick of the progress screen.
    void search(const char* button, const std::string& message,
                const std::function<void(QWidget&, int)>& atTick = {}) {
        texts.clear();
        bus.requests.clear();
        bus.emptyReads = 0;
        gate.expectMessage(message);
        clickAndWork(form, button, [&](QWidget& screen) {
            const auto& bar = control<QProgressBar>(screen, "Progress");
            for (int number = 0; screen.isVisible(); ++number) {
                bus.opens = number >= portCount || ports.contains(number + 1);
                if (atTick)
                    atTick(screen, number);
                tick(screen, "StatusTimer");
                texts.push_back(textOf(screen, "ProgressLabel"));
            }
            barLeft = bar.maximum() - bar.value();
        });
        EXPECT_EQ(bus.portsOpen, 0);
    }
    std::string shown() {
        return textOf(form, "combo") + "|" + textOf(form, "baudCom") + "|" +
               textOf(form, "DeviceIDCombo");
    }

    std::set<int> ports;                         ///< those that can be opened
    std::map<std::string, std::string> answers;  ///< "3 9600 @02DN", and what comes back on it
    std::vector<std::string> texts;              ///< what was shown after each tick
    int barLeft = -1;
    SelectComForm form{services, directory};
};

TEST_F(SearchTest, GoesThroughPortsRatesAndIdsOneStepATick) {
    ports = {2, 15};
    search("SearchZLT", notFound);
    ASSERT_EQ(texts.size(), 15U + 15U + 2U * 5U * (1U + 9U)) << "skipping a port takes a tick too";
    const std::pair<std::size_t, const char*> table[] = {
        {0, "Checking Port 1"},
        {16, "Found Port 2."},
        {26, "Trying Port 2, Baud:9600 ID:09"},
        {27, "Trying Port 2, Baud:19200"},
        {129, "Trying Port 15, Baud:115200 ID:09"}};
    for (const auto& [place, text] : table)
        EXPECT_EQ(texts[place], text) << place;
    EXPECT_EQ(bus.requests[9], "@01DN");
    EXPECT_EQ(bus.openings[15 + 1], "2 19200");
    EXPECT_EQ(bus.emptyReads, 90 * 31);
    EXPECT_EQ(barLeft, 0) << "the bar is full at the end";
}

TEST_F(SearchTest, PutsTheFirstNameAnywhereInAReplyIntoTheBoxes) {
    ports = {1, 12};
    for (const char* reply : {"#09ZLD09", "noise\rxZLDx\rZLD05"}) {
        answers = {{"12 38400 @09DN", reply}, {"12 57600 @01DN", "ZLD01"}};
        search("SearchZLT", "ZLT-R-NX Found on Port:12 Baud:38400 ID:09");
        EXPECT_EQ(shown(), "COM12|38400|09");
    }
    answers = {{"12 38400 @09DN", "ZL"}};
    search("SearchZLT", notFound);
    EXPECT_EQ(shown(), "COM12|38400|09") << "as it was";
    EXPECT_FALSE(std::filesystem::exists("zlt-r-485.ini")) << "only connecting saves them";
}

TEST_F(SearchTest, ListsEachControllerOnce) {
    ports = {1, 3};
    answers = {{"1 9600 @01DN", "ZLD01\rZLD01"}, {"3 19200 @09DN", "?\rZLD09"}};
    search("SearchAllZLT",
           "Found on Com Port:1 Baud:9600 ID:01\r\nFound on Com Port:3 Baud:19200 ID:09\r\n");
    EXPECT_EQ(shown(), "COM1|9600|01");
}

TEST_F(SearchTest, GoesOnCountingEmptyReadsAfterAFindAlone) {
    ports = {1};
    const std::string pause(20, '\0');
    answers = {{"1 9600 @01DN", "ZLD01" + pause}, {"1 9600 @02DN", "noise" + pause}};
    search("SearchAllZLT", "Found on Com Port:1 Baud:9600 ID:01\r\n");
    EXPECT_EQ(bus.emptyReads, (20 + 11) + (20 + 31) + 43 * 31);
}

TEST_F(SearchTest, ListsWhatHasBeenFoundSoFar) {
    ports = {1};
    answers = {{"1 9600 @01DN", "ZLD01"}, {"1 9600 @02DN", "ZLD02"}};
    const std::string one = "Found on Com Port:1 Baud:9600 ID:01";
    const std::string two = "Found on Com Port:1 Baud:9600 ID:02";
    std::vector<std::string> lists;
    const auto atTick = [&](QWidget& screen, int number) {
        const auto& list = control<QPlainTextEdit>(screen, "foundList");
        if (number >= 17 && number <= 19)
            lists.push_back(list.isVisible() ? list.toPlainText().toStdString() : "hidden");
    };
    search("SearchAllZLT", one + "\r\n" + two + "\r\n", atTick);
    search("SearchZLT", "ZLT-R-NX Found on Port:1 Baud:9600 ID:01", atTick);
    const std::vector<std::string> expected{"", one, one + "\n" + two, "hidden"};
    EXPECT_EQ(lists, expected);
}

TEST_F(SearchTest, EndsWhatAControllerWasToBecome) {
    answerAsController();
    for (const char* value : {"CURR", "CURI", "MS", "POL", "DL", "SLOAD", "DB", "RT"})
        bus.replies[value] = "1";
    const auto inSearch = std::exchange(bus.answer, nullptr);
    clickAndWork(form, "Command25", [this](QWidget& panel) {
        clickAndWork(panel, "Setup", [this](QWidget& setup) {
            control<QComboBox>(setup, "DeviceIDCombo").setEditText(QStringLiteral("05"));
            gate.expectQuestion("Device ID", "Are you sure you want change Device ID to 05?", true);
            gate.expectMessageWith("Device ID Set.");
            gate.expectMessage("Download Done!");
            click(setup, "DownloadPar");
            click(setup, "Close");
        });
        bus.replies["DN"] = "ZLD02";
        choose(panel, "SelectedDeviceID", "02");
        EXPECT_FALSE(control<QWidget>(panel, "pendingNote").isVisible()) << "another device's";
        click(panel, "Command2");
    });
    EXPECT_EQ(textOf(form, "pendingText"),
              "Device 01 on COM1, from the next power-up: ID 05 (not stored to flash)");
    bus.answer = inSearch;
    ports = {1};
    answers = {{"1 9600 @05DN", "ZLD05"}};
    search("SearchZLT", "ZLT-R-NX Found on Port:1 Baud:9600 ID:05");
    EXPECT_FALSE(control<QWidget>(form, "pendingText").isVisible());
}

TEST_F(SearchTest, SaysOnlyThatThereIsNoPort) {
    search("SearchAllZLT", "No Port Available!");
    EXPECT_EQ(texts.size(), 16U);
}

TEST_F(SearchTest, IsNotHeldByALineThatStreams) {
    ports = {1};
    std::string lines, slow;
    for (int count = 0; count < 1000; ++count) {
        lines += "1.5 mm\r";
        slow += "A" + std::string(20, '\0') + "\r";
    }
    const std::pair<std::string, int> table[] = {
        {std::string(5000, 'A'), 0}, {lines, 0}, {slow, 45 * 501}};
    for (const auto& [stream, emptyReads] : table) {
        bus.answer = [&stream = stream](const std::string&) { return stream; };
        search("SearchAllZLT", "No device found!");
        EXPECT_EQ(bus.requests.size(), 45U);
        EXPECT_EQ(bus.emptyReads, emptyReads) << stream.substr(0, 3);
    }
}

TEST_F(SearchTest, GivesUpAPortThatGoesAway) {
    ports = {2, 4};
    answers = {{"4 9600 @01DN", "ZLD01"}};
    // The second rate of the first port is opened in the one step, and first used in the next.
    for (const int gone : {27, 28}) {
        search("SearchZLT", "ZLT-R-NX Found on Port:4 Baud:9600 ID:01", [&](QWidget&, int number) {
            bus.opens = bus.opens && number != gone;
            bus.losesAtWriteOf = number == gone ? std::optional("DN") : std::nullopt;
        });
        EXPECT_EQ(bus.requests.size(), 9U + 1U);
    }
    const std::string lost =
        "COM2 went away during the search (Input/output error).  Plug the adapter in and search "
        "again.\r\n";
    const auto pull = [&](QWidget&, int number) {
        bus.losesAtWriteOf = number == 28 ? std::optional("DN") : std::nullopt;
    };
    search("SearchAllZLT", "Found on Com Port:4 Baud:9600 ID:01\r\n" + lost, pull);
    answers.clear();
    search("SearchZLT", lost, pull);
}

TEST_F(SearchTest, LetsACancelGoBeforeTheTickThatIsOverdueAfterALongStep) {
    constexpr std::int64_t interval = 20;
    int leftAfterProbe = -1;
    gate.expectMessage(notFound);
    bus.answer = [&](const std::string&) -> std::optional<std::string> {
        QElapsedTimer probe;
        for (probe.start(); !probe.hasExpired(interval + 5);) {
        }
        return std::nullopt;
    };
    clickAndWork(form, "SearchZLT", [&](QWidget& screen) {
        auto& timer = control<QTimer>(screen, "StatusTimer");
        timer.setInterval(interval);
        // Connected later than the screen's own, so called after it.
        QObject::connect(&timer, &QTimer::timeout, &screen, [&] {
            if (bus.requests.empty() || leftAfterProbe >= 0)
                return;
            leftAfterProbe = timer.remainingTime();
            click(screen, "Cancel");
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return !screen.isVisible(); }));
    });
    EXPECT_GT(leftAfterProbe, 0) << "an overdue timer goes before what the operator does";
    EXPECT_EQ(bus.requests.size(), 1U);
}

TEST_F(SearchTest, EndsOnCancelWithWhatItHas) {
    ports = {1};
    answers = {{"1 9600 @02DN", "ZLD02"}};
    search("SearchAllZLT", "Found on Com Port:1 Baud:9600 ID:02\r\n",
           [](QWidget& screen, int number) {
               if (number == 19)
                   click(screen, "Cancel");
           });
    EXPECT_EQ(texts.size(), 20U);
    search("SearchZLT", notFound, [](QWidget& screen, int) { screen.close(); });
    EXPECT_EQ(texts.size(), 1U);
}

}  // namespace
}  // namespace zlt::test
