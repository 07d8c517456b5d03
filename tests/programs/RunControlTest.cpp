#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>

#include "panel/MainControlForm.h"
#include "programs/XThreadForm.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {
namespace {

using Commands = std::vector<std::string>;

class RunControlTest : public ::testing::Test, public World {
 protected:
    RunControlTest() {
        answerAsController();
        form.Form_Load({{3}, "9600", "01"});
        form.show();
        bus.takeCommands();
    }
    Commands commandsOf(const char* button) {
        click(form, button);
        return bus.takeCommands();
    }
    bool checked(const char* option) { return control<QAbstractButton>(form, option).isChecked(); }

    MainControlForm form{services, nullptr};
};

TEST_F(RunControlTest, SendsTheRunCommands) {
    EXPECT_EQ(commandsOf("RunProg"), Commands{"SR=1"});
    EXPECT_EQ(commandsOf("PauseProg"), Commands{"SR=2"});
    EXPECT_EQ(commandsOf("ContProg"), Commands{"SR=3"});
    click(form, "Command5");
    control<QLineEdit>(form, "Accel").setText(QStringLiteral("soon"));
    gate.expectMessageWith("\"soon\" in the field \"Accel\"");
    EXPECT_EQ(commandsOf("StopProg"), (Commands{"SR=0", "HSPD=5000", "ABORT"}));
    EXPECT_FALSE(checked("Command5")) << "the demo ends";
}

TEST_F(RunControlTest, ShowsTheControllersWordOnRunOnBoot) {
    EXPECT_FALSE(checked("RunOnBootOn") || checked("RunOnBootOff"));
    struct Row {
        const char *click, *reply;
        bool on;
    };
    const Row table[] = {{"RunOnBootOn", "1", true},
                         {"RunOnBootOn", "0", false},
                         {"RunOnBootOff", "3", true},
                         {"RunOnBootOff", "-1", false},
                         {"RunOnBootOn", "2", true}};
    for (const Row& row : table) {
        bus.replies["SLOAD"] = row.reply;
        EXPECT_EQ(
            commandsOf(row.click),
            (Commands{row.click == std::string("RunOnBootOn") ? "SLOAD=1" : "SLOAD=0", "SLOAD"}));
        EXPECT_EQ(checked("RunOnBootOn"), row.on) << row.reply;
        EXPECT_EQ(checked("RunOnBootOff"), !row.on) << row.reply;
    }
    bus.silent = true;
    click(form, "RunOnBootOff");
    EXPECT_TRUE(checked("RunOnBootOn")) << "silence is nobody's word";
    bus.silent = false;
    bus.replies["SLOAD"] = "maybe";
    tick(form, "Timer1");
    gate.expectMessage("The reply to the command SLOAD is not a number: \"maybe\"");
    click(form, "RunOnBootOff");
    EXPECT_TRUE(checked("RunOnBootOn")) << "the pair as it was";
    bus.takeCommands();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up})
        press(form, "RunOnBootOn", key);
    EXPECT_EQ(bus.takeCommands(), Commands{}) << "arrow keys select nothing here";
    choose(form, "SelectedDeviceID", "02");
    EXPECT_FALSE(checked("RunOnBootOn") || checked("RunOnBootOff")) << "another controller";

    bus.replies["SLOAD"] = "1";
    click(form, "RunOnBootOn");
    QTimer::singleShot(0, &form, [] { QApplication::activeModalWidget()->close(); });
    gate.expectMessageWith("The reply to the command POL is not a number");
    click(form, "Setup");
    EXPECT_FALSE(checked("RunOnBootOn") || checked("RunOnBootOff")) << "Setup writes it too";
}

TEST_F(RunControlTest, OpensTheThreadScreenFromFirmware322On) {
    EXPECT_TRUE(control<QWidget>(form, "XThread").isEnabled());
    QTimer::singleShot(0, &form, [this] {
        QWidget* threads = QApplication::activeModalWidget();
        ASSERT_TRUE(threads);
        EXPECT_EQ(bus.portsOpen, 1) << "one port at a time";
        EXPECT_EQ(bus.openings.back(), "3 9600,N,8,1");
        tick(form, "Timer1");
        EXPECT_EQ(bus.takeCommands(), Commands{});
        tick(*threads, "Timer1");
        threads->close();
    });
    click(form, "XThread");
    EXPECT_EQ(bus.takeCommands(), (Commands{"SPC0", "SPC1", "SASTAT0", "SASTAT1"}));
    EXPECT_EQ(bus.openings.size(), 3U);
    EXPECT_EQ(bus.portsOpen, 1);

    bus.replies["VER"] = "V321";
    choose(form, "SelectedDeviceID", "02");
    bus.takeCommands();
    click(form, "XThread");
    EXPECT_EQ(bus.openings.size(), 3U);

    World old;
    old.answerAsController("V321");
    MainControlForm panel(old.services, nullptr);
    panel.Form_Load({{3}, "9600", "01"});
    EXPECT_FALSE(control<QWidget>(panel, "XThread").isEnabled());
}

class XThreadFormTest : public ::testing::Test, public World {
 protected:
    void open() {
        form.Form_Load();
        form.show();
    }
    Commands commandsOf(const char* button) {
        click(form, button);
        return bus.takeCommands();
    }

    XThreadForm form{services, {true, true, {{3}, "9600", "01"}, {322}}, nullptr};
};

TEST_F(XThreadFormTest, WorksTheSelectedThread) {
    open();
    EXPECT_EQ(commandsOf("RunProg"), Commands{"SR0=1"});
    EXPECT_EQ(commandsOf("StopProg"), (Commands{"SR0=0", "ABORT"}));
    click(form, "ProgSel1");
    EXPECT_EQ(commandsOf("PauseProg"), (Commands{"SR1=2", "ABORT"}));
    EXPECT_EQ(commandsOf("ContProg"), Commands{"SR1=3"});
    EXPECT_EQ(waits.slept.count(), 0) << "no settling waits here";
}

TEST_F(XThreadFormTest, ShowsBothThreads) {
    open();
    bus.replies = {{"SPC0", "12"}, {"SPC1", "x\xE9"}, {"SASTAT0", "4"}, {"SASTAT1", "2"}};
    tick(form, "Timer1");
    EXPECT_EQ(textOf(form, "ProgIndex0"), "12");
    EXPECT_EQ(textOf(form, "ProgIndex1"), "x\u00E9");
    EXPECT_EQ(textOf(form, "ProgStatus0"), "Errored");
    EXPECT_EQ(textOf(form, "ProgStatus1"), "Paused");
    for (const char* unknown : {"3", "", "one"}) {
        bus.replies["SASTAT0"] = unknown;
        tick(form, "Timer1");
        EXPECT_EQ(textOf(form, "ProgStatus0"), "Errored") << unknown;
    }
}

TEST_F(XThreadFormTest, AsksOnWhileTheControllerIsSilentAndLeavesRoomToClose) {
    open();
    const auto colour = [&] {
        return control<QWidget>(form, "ProgStatus0").palette().color(QPalette::Text);
    };
    const QColor live = colour();
    bus.silent = true;
    for (const char* query : {"SPC0", "SPC1", "SASTAT0", "SASTAT1"})
        gate.expectMessage("No Reply to Command: " + std::string(query),
                           [&] { EXPECT_NE(colour(), live) << "behind the message"; });
    tick(form, "Timer1");
    EXPECT_EQ(textOf(form, "ProgIndex0"), "0");
    EXPECT_EQ(textOf(form, "ProgStatus0"), "Idle");
    EXPECT_EQ(control<QTimer>(form, "Timer1").interval(), 500);
    bus.silent = false;
    tick(form, "Timer1");
    EXPECT_EQ(control<QTimer>(form, "Timer1").interval(), 1);
    EXPECT_EQ(colour(), live);
    click(form, "Command1");
    EXPECT_EQ(bus.portsOpen, 0);
}

TEST_F(XThreadFormTest, TellsAMissingPortOnce) {
    bus.opens = false;
    open();
    gate.expectMessage("Communication port not open!");
    tick(form, "Timer1");
    EXPECT_FALSE(control<QTimer>(form, "Timer1").isActive());
    click(form, "RunProg");
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(programEnd.ended());
}

}  // namespace
}  // namespace zlt::test
