#include "LoadedPanel.h"

namespace zlt::test {
namespace {

class RunControlTest : public LoadedPanel {
 protected:
    bool checked(const char* option) { return control<QAbstractButton>(form, option).isChecked(); }
};

TEST_F(RunControlTest, SendsTheRunCommands) {
    EXPECT_EQ(commandsOf(form, "RunProg"), Commands{"SR=1"});
    EXPECT_EQ(commandsOf(form, "PauseProg"), Commands{"SR=2"});
    EXPECT_EQ(commandsOf(form, "ContProg"), Commands{"SR=3"});
    click(form, "Command5");
    EXPECT_EQ(commandsOf(form, "StopProg"), (Commands{"SR=0", "HSPD=5000", "ACC=250", "ABORT"}));
    EXPECT_FALSE(checked("Command5")) << "the demo ends";
}

TEST_F(RunControlTest, ShowsTheControllersWordOnRunOnBoot) {
    EXPECT_FALSE(checked("RunOnBootOn") || checked("RunOnBootOff"));
    const std::tuple<const char*, const char*, const char*, bool> table[] = {
        {"RunOnBootOn", "SLOAD=1", "-1", false},
        {"RunOnBootOff", "SLOAD=0", "3", true},
        {"RunOnBootOff", "SLOAD=0", "0", false},
        {"RunOnBootOn", "SLOAD=1", "1", true}};
    for (const auto& [button, command, reply, on] : table) {
        bus.replies["SLOAD"] = reply;
        EXPECT_EQ(commandsOf(form, button), (Commands{command, "SLOAD"}));
        EXPECT_EQ(checked("RunOnBootOn"), on) << reply;
        EXPECT_EQ(checked("RunOnBootOff"), !on) << reply;
    }
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up})
        press(form, "RunOnBootOn", key);
    EXPECT_EQ(bus.takeCommands(), Commands{}) << "arrow keys select nothing here";
    bus.replies["SLOAD"] = "maybe";
    gate.expectMessage("The reply to the command SLOAD is not a number: \"maybe\"");
    click(form, "RunOnBootOff");
    EXPECT_FALSE(checked("RunOnBootOff")) << "the pair as it was";
    bus.silent = true;
    click(form, "RunOnBootOff");
    EXPECT_TRUE(checked("RunOnBootOn") && !checked("RunOnBootOff")) << "no controller has said it";
    bus.silent = false;
    choose(form, "SelectedDeviceID", "02");
    EXPECT_FALSE(checked("RunOnBootOn") || checked("RunOnBootOff")) << "another controller";

    bus.replies["SLOAD"] = "1";
    click(form, "RunOnBootOn");
    gate.expectMessageWith("Not read from the controller");
    clickAndWork(form, "Setup", [](QWidget& setup) { setup.close(); });
    EXPECT_FALSE(checked("RunOnBootOn") || checked("RunOnBootOff")) << "Setup writes it too";
}

TEST_F(RunControlTest, WorksAndShowsEachThreadOverAPortOfItsOwn) {
    click(form, "Command5");
    onScreen("XThread", [this](QWidget& threads) {
        EXPECT_EQ(bus.portsOpen, 1) << "one port at a time";
        EXPECT_EQ(bus.openings.back(), "3 9600");
        EXPECT_EQ(commandsOf(threads, "RunProg"), Commands{"SR0=1"});
        EXPECT_EQ(commandsOf(threads, "StopProg"), (Commands{"SR0=0", "ABORT"}));
        click(threads, "ProgSel1");
        EXPECT_EQ(commandsOf(threads, "PauseProg"), (Commands{"SR1=2", "ABORT"}));
        EXPECT_EQ(commandsOf(threads, "ContProg"), Commands{"SR1=3"});

        bus.replies = {{"SPC0", "12"}, {"SPC1", "x\xE9"}, {"SASTAT1", "2"}};
        for (const char* code : {"4", "3", "", "one"}) {
            bus.replies["SASTAT0"] = code;
            tick(threads, "Timer1");
            EXPECT_EQ(bus.takeCommands(), (Commands{"SPC0", "SPC1", "SASTAT0", "SASTAT1"}));
            EXPECT_EQ(textOf(threads, "ProgStatus0"), "Errored") << code;
        }
        EXPECT_EQ(textOf(threads, "ProgStatus1"), "Paused");
        EXPECT_EQ(textOf(threads, "ProgIndex0"), "12");
        EXPECT_EQ(textOf(threads, "ProgIndex1"), "x\u00E9");
        answerAsController();
    });
    EXPECT_EQ(bus.portsOpen, 1);
    EXPECT_FALSE(checked("Command5")) << "what stopped the axis there ends the demo here";
}

TEST_F(RunControlTest, OpensNoThreadScreenBelowFirmware322) {
    bus.replies["VER"] = "V321";
    MainControlForm old(services, draft, nullptr);
    old.Form_Load({{3}, "9600", "01"});
    EXPECT_FALSE(control<QWidget>(old, "XThread").isEnabled());
    const auto openings = bus.openings;
    choose(form, "SelectedDeviceID", "02");
    click(form, "XThread");
    EXPECT_EQ(bus.openings, openings) << "the button is as the first controller left it";
}

TEST_F(RunControlTest, LeavesRoomToCloseTheThreadScreenOfASilentController) {
    onScreen("XThread", [this](QWidget& threads) {
        const auto colour = [&threads] {
            return control<QWidget>(threads, "ProgStatus0").palette().color(QPalette::Text);
        };
        const QColor live = colour();
        bus.silent = true;
        for (const char* query : {"SPC0", "SPC1", "SASTAT0", "SASTAT1"})
            gate.expectMessage("No Reply to Command: " + std::string(query),
                               [&] { EXPECT_NE(colour(), live) << "under the message"; });
        tick(threads, "Timer1");
        EXPECT_EQ(textOf(threads, "ProgIndex0"), "0");
        EXPECT_EQ(control<QTimer>(threads, "Timer1").interval(), 1000);
        bus.silent = false;
        bus.losesAtWriteOf = "SR0=3";
        gate.expectMessage("Communication port not open!");
        click(threads, "ContProg");
        tick(threads, "Timer1");
        EXPECT_FALSE(control<QTimer>(threads, "Timer1").isActive()) << "told once";
        EXPECT_NE(colour(), live);
    });
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(RunControlTest, IsNotShiftedForGoodByALateAnswer) {
    const struct Row {
        const char *silentAt, *press, *late;
        std::vector<const char*> messages;
    } table[] = {{"SPC1", nullptr, "34\r", {"No Reply to Command: SPC1"}},
                 {"SR0=3", "ContProg", "OK\r", {"No Reply to Command: SR0=3"}},
                 {"ABORT", "ISTOP", "OK\r", {}}};
    onScreen("XThread", [&](QWidget& threads) {
        bus.replies = {{"SPC0", "12"}, {"SPC1", "34"}, {"SASTAT0", "1"}, {"SASTAT1", "2"}};
        for (const Row& row : table) {
            SCOPED_TRACE(row.silentAt);
            bus.silentAt = row.silentAt;
            for (const char* message : row.messages)
                gate.expectMessage(message);
            if (row.press)
                click(threads, row.press);
            else
                tick(threads, "Timer1");
            EXPECT_EQ(control<QTimer>(threads, "Timer1").interval(), 1000) << "time for it to come";
            bus.silentAt.reset();
            bus.feed(row.late);
            tick(threads, "Timer1");
            EXPECT_EQ(textOf(threads, "ProgIndex0") + " " + textOf(threads, "ProgIndex1") + " " +
                          textOf(threads, "ProgStatus0") + " " + textOf(threads, "ProgStatus1"),
                      "12 34 Running Paused");
            EXPECT_EQ(control<QTimer>(threads, "Timer1").interval(), 1);
        }
        answerAsController();
    });
}

}  // namespace
}  // namespace zlt::test
