// The terminal's own screen, and the panel's frame for a command by hand.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include "support/PanelWorld.h"
#include "terminal/forms/TerminalForm.h"
#include "terminal/forms/Transcript.h"

namespace zlt::test {
namespace {

/// Types a command into an entry line and presses Enter.
void enter(QWidget& form, const char* line, const char* command) {
    control<QLineEdit>(form, line).setText(QString::fromUtf8(command));
    press(form, line, Qt::Key_Return);
}

/// A command by hand: what the controller says to it (nothing: silence), what is shown then, the
/// request that went out for it, and how often a character was waited for in vain.
struct Talk {
    const char *address, *command;
    std::optional<std::string> reply;
    std::string shown, request;
    int emptyReads = 0;
};

/// Has each talk held by `talk`, which takes address and command and returns what is shown.
template <class Held>
void expectTalks(ScriptedBus& bus, std::initializer_list<Talk> talks, Held talk) {
    for (const Talk& row : talks) {
        bus.answer = [&](const std::string&) { return row.reply; };
        bus.emptyReads = 0;
        bus.requests.clear();
        EXPECT_EQ(talk(row.address, row.command), row.shown);
        EXPECT_EQ(bus.requests, std::vector<std::string>{row.request});
        EXPECT_EQ(bus.emptyReads, row.emptyReads) << row.request;
    }
    bus.answer = {};
    bus.requests.clear();
}

class TerminalFormTest : public ::testing::Test, public World {
 protected:
    TerminalFormTest() {
        form.Form_Load();
        form.show();
        QApplication::setActiveWindow(&form);
    }
    /// What is added to the transcript by a command to an address.
    std::string talk(const char* address, const char* command) {
        control<QLineEdit>(form, "DeviceID").setText(QString::fromUtf8(address));
        const std::size_t before = pad.text().size();
        enter(form, "SendText", command);
        return pad.text().substr(before);
    }
    std::string shownAfter(Qt::Key key) {
        press(form, "SendText", key);
        return textOf(form, "SendText");
    }
    void paste(const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        auto& line = control<QLineEdit>(form, "SendText");
        line.clear();
        line.paste();
    }

    LinkHandOver handedOver{true, true, {{3}, "9600", "07"}, {}};
    CommandHistory history;
    TerminalForm form{services, handedOver, history, nullptr};
    Transcript& pad = control<Transcript>(form, "Pad");
};

TEST_F(TerminalFormTest, WritesDownBothSidesAsTheyWere) {
    EXPECT_EQ(bus.openings, std::vector<std::string>{"3 9600"});
    EXPECT_EQ(textOf(form, "DeviceID"), "07");
    expectTalks(bus,
                {{"07", "PX", "#071500", ">@07PX\r\n<#071500\r\n", "@07PX"},
                 {" 005 ", "PX", "", ">@05PX\r\n<\r\n", "@05PX"},
                 {"99", "x y=", "\xA0\xE9\n", ">@99x y=\r\n<\xA0\xE9\n\r\n", "@99x y="},
                 {"07", "PX", std::nullopt, ">@07PX\r\n<NO REPLY!\r\n", "@07PX", 101},
                 {"0", "ABORT", std::nullopt, ">@00ABORT\r\n<BROADCAST SENT!\r\n", "@00ABORT"}},
                [this](const char* address, const char* command) {
                    std::string added = talk(address, command);
                    EXPECT_EQ(textOf(form, "SendText"), "");
                    EXPECT_TRUE(control<QWidget>(form, "SendText").hasFocus());
                    return added;
                });
    bus.losesAtReadOf = "EX";
    bus.answer = [this](const std::string&) {
        bus.feed("12");
        return std::nullopt;
    };
    EXPECT_EQ(talk("07", "EX"), ">@07EX\r\n<12Com Port Error\r\n");
    EXPECT_EQ(talk("07", "PX"), ">@07PX\r\n<Com Port Error\r\n");
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(TerminalFormTest, ShowsTheRequestBeforeThePause) {
    bus.answer = [this](const std::string& request) {
        EXPECT_TRUE(pad.toPlainText().toStdString().ends_with(">" + request + "\n"));
        return "OK";
    };
    const std::pair<const char*, int> table[] = {{"PX", 0},    {"STORE", 200}, {"DN=ZLD05", 200},
                                                 {"ZH+", 200}, {"SR0", 1000},  {"ZSR", 1200}};
    for (const auto& [command, pause] : table) {
        waits.slept = {};
        talk("07", command);
        EXPECT_EQ(waits.slept.count(), pause) << command;
    }
}

TEST_F(TerminalFormTest, RefusesWhatIsNoAddressAndWhatTheWireCannotCarry) {
    for (const char* typed : {"", "100", "-0.4", "\u22125"}) {
        gate.expectMessage("\"" + std::string(typed) +
                           "\" in the field \"Device ID\" is not an address from 0 to 99.  "
                           "Nothing was sent.");
        EXPECT_EQ(talk(typed, "PX"), "");
        EXPECT_EQ(textOf(form, "SendText"), "PX") << "to be sent once the address is mended";
        EXPECT_TRUE(control<QWidget>(form, "DeviceID").hasFocus());
    }
    const std::pair<const char*, const char*> table[] = {{"X=\u22125", "U+2212"},
                                                         {"PX\r\nABORT", "control character"},
                                                         {"PX\n\n", "control character"},
                                                         {"PX\t", "control character"}};
    for (const auto& [pasted, words] : table) {
        paste(pasted);
        gate.expectMessageWith(words);
        EXPECT_NE(shownAfter(Qt::Key_Return), "") << "to be mended";
    }
    EXPECT_TRUE(bus.requests.empty());
    for (const char* line : {"PX\r\n", "PX\n", "PX\r"}) {
        paste(line);
        EXPECT_EQ(textOf(form, "SendText"), "PX") << "one line end belongs to a copied line";
    }
}

TEST_F(TerminalFormTest, KeepsTheCursorInTheLineAndThePagesInReach) {
    auto& line = control<QLineEdit>(form, "SendText");
    for (int count = 0; count < 40; ++count)
        talk("07", "PX");
    auto& place = *pad.verticalScrollBar();
    const int end = place.maximum();
    press(form, "SendText", Qt::Key_PageUp);
    EXPECT_LT(place.value(), end);
    press(form, "SendText", Qt::Key_PageDown);
    EXPECT_EQ(place.value(), end);

    const auto clickPad = [&](auto click) {
        pad.setFocus();
        click(pad.viewport(), Qt::LeftButton, Qt::KeyboardModifiers(), QPoint(20, 20), -1);
    };
    clickPad([](auto... press) { QTest::mouseClick(press...); });
    EXPECT_TRUE(line.hasFocus());
    clickPad([](auto... press) { QTest::mouseDClick(press...); });
    EXPECT_TRUE(pad.hasFocus()) << "what is selected can be copied by key";
    gate.expectSaveDialog({"Save Terminal Text As", "Terminal Text Files (*.txt)|*.txt", ""}, {});
    control<QWidget>(form, "Command2").setFocus();
    click(form, "Command2");
    EXPECT_TRUE(line.hasFocus());
}

TEST_F(TerminalFormTest, RecallsByItsOwnRuleAndWalksThroughTheCommands) {
    EXPECT_EQ(shownAfter(Qt::Key_F1) + shownAfter(Qt::Key_Up), "");
    for (const char* command : {"PX", "EX", "EX", "CUR"})
        talk("07", command);
    control<QLineEdit>(form, "SendText").setText(QStringLiteral("half"));
    const std::pair<Qt::Key, const char*> walk[] = {
        {Qt::Key_Up, "CUR"},   {Qt::Key_Up, "EX"},     {Qt::Key_F1, "CUR"},
        {Qt::Key_Up, "PX"},    {Qt::Key_Up, "PX"},     {Qt::Key_Down, "EX"},
        {Qt::Key_Down, "CUR"}, {Qt::Key_Down, "half"}, {Qt::Key_Down, "half"}};
    for (const auto& [key, shown] : walk)
        EXPECT_EQ(shownAfter(key), shown);
    bus.requests.clear();
    EXPECT_EQ(talk("07", ""), "");
    EXPECT_TRUE(bus.requests.empty());
    EXPECT_EQ(shownAfter(Qt::Key_F1), "") << "an empty entry is the last one";
    EXPECT_EQ(shownAfter(Qt::Key_Up), "CUR") << "but it was never sent";
}

TEST_F(TerminalFormTest, SavesTheTranscriptAsItIs) {
    bus.replies["ID"] = "a\xA0\x80\xFF";
    const auto save = [this](const char* name, const char* message) {
        gate.expectSaveDialog({"Save Terminal Text As", "Terminal Text Files (*.txt)|*.txt", ""},
                              name);
        gate.expectMessageWith(message);
        click(form, "Command2");
        return files.read(pathFromUtf8(name)).whole().value_or("none");
    };
    EXPECT_EQ(save("\xC3\xA9.txt", "Save Done!"), "\r\n\r\n");
    talk("07", "ID");
    EXPECT_EQ(save("\xC3\xA9.txt", "Save Done!"), ">@07ID\r\n<a\xA0\x80\xFF\r\n\r\n");
    save("no/folder.txt", "The text could not be saved in no/folder.txt: ");
}

class TerminalFrameTest : public ::testing::Test, public PanelWorld {
 protected:
    TerminalFrameTest() { load(); }

    /// The reply shown after a command to an address.
    std::string talk(const char* address, const char* command) {
        device.setEditText(QString::fromUtf8(address));
        enter(form, "SendTerminalText", command);
        return shown("ReceiveTerminalText");
    }
    std::string shownAfter(Qt::Key key) {
        press(form, "SendTerminalText", key);
        return shown("SendTerminalText");
    }

    QComboBox& device = control<QComboBox>(form, "DeviceIDComboTerminal");
};

TEST_F(TerminalFrameTest, ShowsTheLastReplyAsItCame) {
    EXPECT_EQ(device.currentText(), QStringLiteral("01"));
    EXPECT_EQ(device.itemText(0), QStringLiteral("00"));
    expectTalks(
        bus,
        {{"05", "PX", "#051500", "#051500", "@05PX"},
         {"7", "ID", "a\xA0", "a\xC2\xA0", "@7ID"},
         {"05", "EX", std::nullopt, "NO REPLY!", "@05EX", 501},
         {"00", "ABORT", std::nullopt, "BROADCAST SENT!", "@00ABORT"}},
        [this](const char* address, const char* command) { return talk(address, command); });
    EXPECT_EQ(shown("ComStatusDisplay"), "Communication OK")
        << "a silent device by hand says nothing of the panel's";
    EXPECT_EQ(shown("SendTerminalText"), "");
}

TEST_F(TerminalFrameTest, SendsByEnterAloneAndRemembersOnlyWhatWasSent) {
    talk("05", "PX");
    talk("05", "");
    EXPECT_EQ(shownAfter(Qt::Key_F1), "PX");
    sent();
    click(form, "SendTerminal");
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Up, Qt::Key_Down})
        EXPECT_EQ(shownAfter(key), "PX");
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&control<QWidget>(form, "SendTerminalText"), &held);
    EXPECT_EQ(sent(), "") << "of a key held down only the first press counts";

    gate.expectMessageWith("U+2212");
    talk("\u22121", "EX");
    EXPECT_EQ(shownAfter(Qt::Key_F1), "PX");
    bus.silent = true;
    sentByTick();
    talk("05", "EX");
    EXPECT_EQ(sent(), "") << "the panel is not connected";
    EXPECT_EQ(shown("SendTerminalText"), "EX");
}

TEST_F(TerminalFrameTest, KeepsTheTerminalScreensCommandsAsLongAsThePanel) {
    const auto shownIn = [](QWidget& screen, Qt::Key key) {
        press(screen, "SendText", key);
        return textOf(screen, "SendText");
    };
    clickAndWork(form, "ManualTerminal", [&](QWidget& terminal) {
        for (const char* command : {"PX", "EX", "CUR"})
            enter(terminal, "SendText", command);
        for (const char* command : {"CUR", "EX"})
            EXPECT_EQ(shownIn(terminal, Qt::Key_Up), command);
        terminal.close();
    });
    clickAndWork(form, "ManualTerminal", [&](QWidget& terminal) {
        EXPECT_EQ(shownIn(terminal, Qt::Key_F1), "") << "nothing was sent at this showing";
        EXPECT_EQ(shownIn(terminal, Qt::Key_Up), "CUR") << "from the newest again";
        terminal.close();
    });
}

}  // namespace
}  // namespace zlt::test
