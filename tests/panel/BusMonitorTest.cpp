// The bus monitor beside the panel.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/PanelWorld.h"
#include "terminal/forms/BusForm.h"

namespace zlt::test {
namespace {

struct MonitorWorld : PanelWorld {
    void openMonitor() {
        load();
        click(form, "Bus");
        monitor = form.findChild<BusForm*>();
        ASSERT_TRUE(monitor && monitor->isVisible());
    }
    QTableView& table() { return control<QTableView>(*monitor, "List"); }
    std::string cell(int row, int column) {
        return table().model()->index(row, column).data().toString().toStdString();
    }
    /// The commands listed, each with its result where it has one: "DN|EX TIME-OUT".
    std::string listed() {
        tick(*monitor, "refreshTimer");
        std::string commands;
        for (int row = 0; row < table().model()->rowCount(); ++row) {
            const std::string result = cell(row, BusModel::result);
            commands += (commands.empty() ? "" : "|") + cell(row, BusModel::command) +
                        (result.empty() ? "" : " " + result);
        }
        return commands;
    }
    void typeFilter(const char* text) {
        control<QLineEdit>(*monitor, "Filter").setText(QString::fromLatin1(text));
    }

    BusForm* monitor = nullptr;
};

constexpr auto loading = "DN|VER|ID|DN|HSPD|ACC";

TEST(BusMonitor, ListsTheOperatorsExchangesAndWhatFailed) {
    MonitorWorld world;
    world.openMonitor();
    EXPECT_EQ(world.listed(), loading);
    EXPECT_EQ(world.cell(1, BusModel::reply), "V322<CR>");
    EXPECT_EQ(world.cell(1, BusModel::port), "COM3 9600");

    EXPECT_EQ(world.sentByTick(), "CUR|PX|EX|MST|EO|MM|DO|SPC|SASTAT");
    click(world.form, "EnableOn");
    EXPECT_EQ(world.listed(), std::string(loading) + "|EO=1") << "the poll is hidden at first";
    click(*world.monitor, "ShowPoll");
    EXPECT_EQ(world.listed(), std::string(loading) + "|CUR|PX|EX|MST|EO|MM|DO|SPC|SASTAT|EO=1");
    EXPECT_EQ(world.cell(6, BusModel::askedBy), "poll");
    world.typeFilter("v32");
    EXPECT_EQ(world.listed(), "VER");
    world.typeFilter("");
    click(*world.monitor, "ShowPoll");

    world.bus.silent = true;
    world.sentByTick();
    world.sentByTick();
    world.typeFilter("time-out");
    EXPECT_EQ(world.listed(),
              "CUR TIME-OUT|PX TIME-OUT|EX TIME-OUT|MST TIME-OUT|EO TIME-OUT|MM TIME-OUT|"
              "DO TIME-OUT|SPC TIME-OUT|SASTAT TIME-OUT");
    click(*world.monitor, "ShowPoll");
    EXPECT_TRUE(world.listed().ends_with("SASTAT TIME-OUT|DN TIME-OUT")) << "the probe";
}

TEST(BusMonitor, StandsStillWhilePausedAndFollowsOnlyAtItsEnd) {
    MonitorWorld world;
    world.openMonitor();
    for (int count = 0; count < 50; ++count)
        click(world.form, "EnableOn");
    world.listed();
    QScrollBar& bar = *world.table().verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(3);
    click(world.form, "EnableOff");
    world.listed();
    EXPECT_EQ(bar.value(), 3) << "what is being read stays";

    click(*world.monitor, "Pause");
    click(world.form, "EnableOn");
    world.sentByTick();
    EXPECT_EQ(world.listed().substr(world.listed().size() - 4), "EO=0");
    EXPECT_EQ(textOf(*world.monitor, "Count"), "57 exchanges, paused");
    click(*world.monitor, "ShowPoll");
    EXPECT_EQ(world.listed().substr(world.listed().size() - 4), "EO=0")
        << "with another filter too";
    click(*world.monitor, "Pause");
    EXPECT_TRUE(world.listed().ends_with("EO=0|EO=1|CUR|PX|EX|MST|EO|MM|DO|SPC|SASTAT"));

    BusRecord record;
    record.command.set("V0");
    bar.setValue(20);
    const std::string top = world.cell(20, BusModel::command) + world.cell(20, BusModel::time);
    for (int count = 0; count < 9945; ++count)
        world.services.busLog->add(record);
    tick(*world.monitor, "refreshTimer");
    EXPECT_EQ(world.table().model()->rowCount(), 10'000);
    const int now = bar.value();
    EXPECT_LT(now, 20) << "rows went off the front";
    EXPECT_EQ(world.cell(now, BusModel::command) + world.cell(now, BusModel::time), top);
}

std::string contentOf(const char* file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

TEST(BusMonitor, CopiesAndSavesTheSelectedLinesOrAll) {
    MonitorWorld world;
    world.openMonitor();
    click(*world.monitor, "Copy");
    const std::string all = QGuiApplication::clipboard()->text().toStdString();
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 7);
    EXPECT_EQ(textOf(*world.monitor, "Note"), "6 exchanges copied.");
    world.table().selectRow(1);
    world.table().setFocus();
    world.monitor->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(world.monitor));
    QTest::keyClick(&world.table(), Qt::Key_C, Qt::ControlModifier);
    const std::string one = QGuiApplication::clipboard()->text().toStdString();
    EXPECT_EQ(std::count(one.begin(), one.end(), '\n'), 2);
    EXPECT_NE(one.find("V322<CR>"), std::string::npos);
    EXPECT_EQ(textOf(*world.monitor, "Note"), "1 exchange copied.");

    const FileChoice choice{"Save Exchanges As", "Text Files (*.txt)|*.txt", "bus.txt"};
    for (const auto& none : {std::optional<std::string>(), std::optional<std::string>(""),
                             std::optional<std::string>("*.txt")}) {
        world.gate.expectSaveDialog(choice, none);
        click(*world.monitor, "Save");
        EXPECT_EQ(textOf(*world.monitor, "Note"), "1 exchange copied.");
    }
    world.gate.expectSaveDialog(choice, "bus.txt");
    click(*world.monitor, "Save");
    EXPECT_EQ(textOf(*world.monitor, "Note"), "1 exchange saved.");
    const std::string saved = contentOf("bus.txt");
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\r'), 2);
    EXPECT_NE(saved.find("V322<CR>"), std::string::npos);
    world.gate.expectSaveDialog(choice, "nowhere/bus.txt");
    click(*world.monitor, "Save");
    EXPECT_TRUE(textOf(*world.monitor, "Note")
                    .starts_with("The exchanges could not be saved in nowhere/bus.txt: "));
}

TEST(BusMonitor, LetsF12StopTheAxisAndNoOtherKeyDoAThing) {
    MonitorWorld world;
    world.openMonitor();
    for (const char* name : {"List", "Filter", "ShowPoll", "Pause", "Copy", "Save", "Close"})
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
            press(*world.monitor, name, key);
    EXPECT_EQ(world.sent(), "");
    EXPECT_TRUE(world.monitor->isVisible());
    press(*world.monitor, "List", Qt::Key_F12);
    EXPECT_TRUE(world.sent().ends_with("ABORT"));
    click(*world.monitor, "Close");
    EXPECT_FALSE(world.monitor->isVisible());
    click(world.form, "Bus");
    EXPECT_TRUE(world.monitor->isVisible());
    click(world.form, "Command2");
    EXPECT_FALSE(world.monitor->isVisible()) << "closes with the panel";
}

TEST(BusMonitor, CanBeWorkedWhileAnotherScreenStandsOverThePanel) {
    MonitorWorld world;
    world.openMonitor();
    clickAndWork(world.form, "ManualTerminal", [&](QWidget& terminal) {
        const QWindow* window = terminal.windowHandle();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return world.monitor->windowHandle()->transientParent() == window; }));
        auto& line = control<QLineEdit>(terminal, "SendText");
        QTest::keyClicks(&line, QStringLiteral("WHO"));
        QTest::keyClick(&line, Qt::Key_Return);
        EXPECT_EQ(world.listed(), std::string(loading) + "|WHO");
        world.bus.requests.clear();
        click(*world.monitor, "ShowPoll");
        EXPECT_TRUE(control<QAbstractButton>(*world.monitor, "ShowPoll").isChecked());
        press(*world.monitor, "List", Qt::Key_F12);
        EXPECT_EQ(world.sent(), "ABORT") << "the terminal's own stop";
        click(terminal, "Close");
    });
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return world.monitor->windowHandle()->transientParent() == world.form.windowHandle();
    }));
    press(*world.monitor, "List", Qt::Key_F12);
    EXPECT_TRUE(world.sent().ends_with("ABORT")) << "the panel's again";
}

TEST(BusMonitor, EndsWithTheProgramUnderItsOwnFileDialog) {
    const auto ends = [](MonitorWorld& world, const std::function<void()>& whileShown) {
        world.openMonitor();
        world.gate.expectSaveDialog({"Save Exchanges As", "Text Files (*.txt)|*.txt", "bus.txt"},
                                    "never.txt", whileShown);
        click(*world.monitor, "Save");
        EXPECT_FALSE(world.monitor->isVisible());
        EXPECT_FALSE(std::filesystem::exists("never.txt"));
    };
    {
        MonitorWorld asked;
        ends(asked, [&] { asked.programEnd.askForEnd(143); });
    }
    MonitorWorld lost;  // the poll goes on under the dialog
    ends(lost, [&] {
        lost.gate.expectMessage("Communication Error! Input/output error");
        lost.gate.expectMessageWith("Communication port not available!");
        lost.bus.losesAtReadOf = "CUR";
        lost.bus.silentAt = "CUR";
        tick(lost.form, "Timer1");
        EXPECT_FALSE(lost.form.isVisible());
    });
    EXPECT_EQ(lost.programEnd.exitCode(), 1);
}

}  // namespace
}  // namespace zlt::test
