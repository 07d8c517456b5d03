// What an operator beside the machine rests on: a stop that acts when it is pressed, wherever the
// panel is just then, and nothing that moves by a key or a press that was meant for something else.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QMessageBox>
#include <QPushButton>
#include <QStyleHints>
#include <QTest>

#include "link/Flavour.h"
#include "support/PanelWorld.h"

namespace zlt::test {
namespace {

const std::string stopSent = "HSPD=5000|ACC=250|STOP";
const std::string abortSent = "HSPD=5000|ACC=250|ABORT";

/// A press of the left button at a place on the desktop, as it reaches `widget`.
bool pressAt(QWidget& widget, const QPoint& place, ulong timestamp,
             QEvent::Type type = QEvent::MouseButtonPress) {
    QMouseEvent event(type, widget.mapFromGlobal(place), place, Qt::LeftButton, Qt::LeftButton, {});
    event.setTimestamp(timestamp);
    return QCoreApplication::sendEvent(&widget, &event);
}

class StopsTest : public ::testing::Test, public PanelWorld {
 protected:
    StopsTest() { load(); }

    QPoint middleOf(QWidget& screen, const char* name) {
        auto& widget = control<QWidget>(screen, name);
        return widget.mapToGlobal(widget.rect().center());
    }
};

TEST_F(StopsTest, ActOnThePressAndOnce) {
    for (const auto& [name, commands] : {std::pair{"RSTOP", stopSent}, {"ISTOP", abortSent}}) {
        auto& stop = control<QWidget>(form, name);
        QTest::mousePress(&stop, Qt::LeftButton);
        EXPECT_EQ(sent(), commands);
        EXPECT_NE(sentByTick(), "") << "a held stop holds nothing off";
        QTest::mouseRelease(&stop, Qt::LeftButton, {}, QPoint(-50, -50));
        EXPECT_EQ(sent(), "");
        QTest::keyPress(&stop, Qt::Key_Space);
        EXPECT_EQ(sent(), commands);
        QTest::keyRelease(&stop, Qt::Key_Space);
        EXPECT_EQ(sent(), "");
    }
}

TEST_F(StopsTest, CountWithAListOpen) {
    auto& box = control<QComboBox>(form, "SelectedDeviceID");
    box.showPopup();
    QWidget* list = QApplication::activePopupWidget();
    ASSERT_TRUE(list);
    pressAt(*list, middleOf(form, "RSTOP"), 1000);
    EXPECT_EQ(sent(), stopSent);
    EXPECT_FALSE(box.view()->isVisible());
    box.showPopup();
    pressAt(*QApplication::activePopupWidget(), middleOf(form, "JOGP"), 9000);
    EXPECT_EQ(sent(), "") << "any other press only closes the list";
    box.hidePopup();
}

TEST_F(StopsTest, AreInReachOfOneKeyUnderThePanelsOwnBoxes) {
    click(form, "Command5");
    QTest::keyClick(&control<QWidget>(form, "SetSpeed"), Qt::Key_F12);
    EXPECT_EQ(sent(), abortSent);
    EXPECT_EQ(shown("Command5"), "off") << "as ISTOP does";
    EXPECT_EQ(control<QGroupBox>(form, "StopFrame").title(), QStringLiteral("Device 01"));

    QMessageBox box(&form);
    QTest::keyClick(&box, Qt::Key_F12);
    EXPECT_EQ(sent(), abortSent);
    QFileDialog dialog(&form);
    QTest::keyClick(&dialog, Qt::Key_F12);
    EXPECT_EQ(sent(), "");

    gate.expectMessageWith("GUI Version", [this] {
        QTest::keyClick(&form, Qt::Key_F12);
        EXPECT_EQ(sent(), abortSent);
    });
    click(form, "About");
    // The handler below the box goes no further than the box when the port is lost meanwhile.
    gate.expectMessageWith("GUI Version", [this] {
        bus.losesAtWriteOf = "HSPD=5000";
        gate.expectMessageWith("Communication Error!");
        gate.expectMessage(std::string(portNotAvailable));
        QTest::keyClick(&form, Qt::Key_F12);
    });
    click(form, "About");
    EXPECT_EQ(programEnd.exitCode(), 1);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(StopsTest, StandOnEveryScreenThatTalks) {
    for (const char* reply : {"POL", "DL", "SLOAD", "DB", "RT", "CURR", "CURI", "MS"})
        bus.replies[reply] = "1";
    for (const char* opener : {"Setup", "ManualTerminal", "Variable", "XThread"}) {
        SCOPED_TRACE(opener);
        click(form, "Command5");
        clickAndWork(form, opener, [this](QWidget& screen) {
            EXPECT_EQ(control<QGroupBox>(screen, "stopBox").title(), QStringLiteral("Device 01"));
            bus.requests.clear();
            QTest::mousePress(&control<QWidget>(screen, "ISTOP"), Qt::LeftButton);
            EXPECT_EQ(bus.requests, std::vector<std::string>{"@01ABORT"});
            bus.silent = true;  // without a word
            QTest::keyClick(&screen, Qt::Key_F12);
            EXPECT_EQ(bus.takeCommands().size(), 2U);
            bus.silent = false;
            screen.close();
        });
        EXPECT_EQ(shown("Command5"), "off");
        sent();
    }
}

TEST_F(StopsTest, GetOutWhateverTheFlagsSayAndTellALostPort) {
    struct Row {
        const char *opener, *firstQuery, *lost;
    };
    const Row table[] = {{"Setup", "DN", "Communication port not open!"},
                         {"Variable", "V0", "No Reply to Command: ABORT"},
                         {"XThread", "SPC0", "Communication port not open!"}};
    for (const Row& row : table) {
        SCOPED_TRACE(row.opener);
        const bool talksAtLoad = std::string_view(row.opener) == "Setup";
        const auto expectSilence = [&] {
            gate.expectMessage("No Reply to Command: " + std::string(row.firstQuery));
        };
        if (talksAtLoad) {
            bus.silentAt = row.firstQuery;
            expectSilence();
        }
        clickAndWork(form, row.opener, [&](QWidget& screen) {
            if (!talksAtLoad) {
                bus.silentAt = row.firstQuery;
                expectSilence();
                screen.grab();  // before it is painted the monitor asks nothing
                tick(screen, "Timer1");
            }
            bus.silentAt.reset();
            sent();
            click(screen, "ISTOP");
            EXPECT_EQ(sent(), "ABORT") << "though the link counts as down";
            bus.losesAtWriteOf = "ABORT";
            gate.expectMessage(row.lost);
            click(screen, "ISTOP");
            bus.losesAtWriteOf.reset();
            screen.close();
        });
    }
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(StopsTest, LeaveEnterWithoutAButtonToPress) {
    for (const char* name : {"JOGP", "ABS", "d1", "DOSet1", "HOMEP", "ISTOP", "EnableStat"}) {
        auto& button = control<QAbstractButton>(form, name);
        // The one way in which Qt itself lets Enter press a button, whatever the desktop's theme.
        if (auto* push = qobject_cast<QPushButton*>(&button))
            push->setAutoDefault(true);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            button.setFocus();
            QTest::keyClick(&button, key);
        }
        EXPECT_EQ(sent(), "") << name;
    }
}

TEST_F(StopsTest, TakeADoubleClickOnACloseForOne) {
    const QPoint place = middleOf(form, "PauseProg");
    const auto interval =
        static_cast<ulong>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    const auto closeBoxAt = [&](const QPoint& where, ulong time) {
        gate.expectMessageWith("GUI Version", [&] { pressAt(form, where, time); });
        click(form, "About");
    };
    struct Row {
        const char* meaning;
        QPoint apart;
        ulong later;
        bool counts;
    };
    const Row table[] = {{"second press of a double click", {1, 1}, interval / 2, false},
                         {"a later press", {1, 1}, interval + 1, true},
                         {"a press elsewhere", {30, 0}, interval / 2, true}};
    auto& pause = control<QWidget>(form, "PauseProg");
    ulong time = 100'000;
    for (const Row& row : table)
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
            time += 10'000;
            closeBoxAt(place, time);
            sent();
            pressAt(pause, place + row.apart, time + row.later, type);
            pressAt(pause, place + row.apart, time + row.later + 1, QEvent::MouseButtonRelease);
            EXPECT_EQ(sent(), row.counts ? "SR=2" : "") << row.meaning;
        }
    const QPoint onStop = middleOf(form, "ISTOP");
    closeBoxAt(onStop, time + 10'000);
    pressAt(control<QWidget>(form, "ISTOP"), onStop, time + 10'100);
    EXPECT_EQ(sent(), abortSent) << "a stop always counts";
}

TEST_F(StopsTest, AreNeverOverdueBehindAnotherPass) {
    auto& timer = control<QTimer>(form, "Timer1");
    tick(form, "Timer1");
    EXPECT_GE(timer.interval(), 1);
    EXPECT_LE(timer.interval(), 10);
    EXPECT_GE(timer.remainingTime(), 0);
    bus.answer = [this](const std::string& request) {
        QTest::qSleep(3);  // a pass that takes longer than the interval
        return bus.usualReply(request);
    };
    tick(form, "Timer1");
    EXPECT_EQ(timer.interval(), 1) << "armed anew, for what is waiting to come first";
}

TEST_F(StopsTest, ThreadsStopBeforeAnyMessage) {
    clickAndWork(form, "XThread", [this](QWidget& threads) {
        bus.silent = true;
        bus.requests.clear();
        gate.expectMessage("No Reply to Command: SR0=0",
                           [this] { EXPECT_EQ(sent(), "SR0=0|ABORT"); });
        gate.expectMessage("No Reply to Command: ABORT");
        click(threads, "StopProg");
        EXPECT_EQ(sent(), "");
        bus.silent = false;
        threads.close();
    });
}

}  // namespace
}  // namespace zlt::test
