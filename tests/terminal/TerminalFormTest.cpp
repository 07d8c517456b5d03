#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>

#include "support/FormDriver.h"
#include "support/World.h"
#include "terminal/CommandLine.h"
#include "terminal/TerminalForm.h"
#include "terminal/Transcript.h"

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

/// Waits during which the screen can be looked at.
class WatchedWaits : public CountedWaits {
 public:
    void sleep(std::chrono::milliseconds time) override {
        CountedWaits::sleep(time);
        look();
    }
    std::function<void()> look = [] {};
};

class TerminalFormTest : public ::testing::Test, public World {
 protected:
    void open() {
        form.Form_Load();
        form.show();
        QApplication::setActiveWindow(&form);
    }
    CommandLine& line() { return control<CommandLine>(form, "SendText"); }
    Transcript& pad() { return control<Transcript>(form, "Pad"); }
    void address(const char* text) {
        control<QLineEdit>(form, "DeviceID").setText(QString::fromUtf8(text));
    }
    void enter(const QString& command) {
        line().setText(command);
        press(form, "SendText", Qt::Key_Return);
    }
    /// What is added to the transcript by a command.
    std::string talk(const char* command) {
        const std::size_t before = pad().text().size();
        enter(QString::fromLatin1(command));
        return pad().text().substr(before);
    }
    std::string shownAfter(Qt::Key key) {
        press(form, "SendText", key);
        return textOf(form, "SendText");
    }

    LinkHandOver handedOver{true, true, {{3}, "9600", "07"}, {}};
    WatchedWaits watched;
    Services watchedServices{gate, watched, files, help, programEnd, tools, {}, services.makePort};
    TerminalForm form{watchedServices, handedOver, nullptr};
};

TEST_F(TerminalFormTest, WritesDownBothSidesAsTheyWere) {
    open();
    EXPECT_EQ(bus.openings, std::vector<std::string>{"3 9600,N,8,1"});
    EXPECT_EQ(textOf(form, "DeviceID"), "07");
    EXPECT_TRUE(line().hasFocus());
    struct Row {
        const char *address, *command, *reply, *transcript, *request;
        int emptyReads;
    };
    const Row table[] = {
        {"07", "PX", "#071500", ">@07PX\r\n<#071500\r\n", "@07PX", 0},
        {"5", "PX", "1", ">@05PX\r\n<1\r\n", "@05PX", 0},
        {" 005 ", "PX", "", ">@05PX\r\n<\r\n", "@05PX", 0},
        {"99", "x y=", "\xA0\xE9\n", ">@99x y=\r\n<\xA0\xE9\n\r\n", "@99x y=", 0},
        {"07", "PX", nullptr, ">@07PX\r\n<NO REPLY!\r\n", "@07PX", 101},
        {"00", "ABORT", nullptr, ">@00ABORT\r\n<BROADCAST SENT!\r\n", "@00ABORT", 0},
        {"0", "EO=0", nullptr, ">@00EO=0\r\n<BROADCAST SENT!\r\n", "@00EO=0", 0}};
    for (const Row& row : table) {
        bus.answer = [&](const std::string&) {
            return row.reply ? std::optional<std::string>(row.reply) : std::nullopt;
        };
        bus.emptyReads = 0;
        bus.requests.clear();
        address(row.address);
        EXPECT_EQ(talk(row.command), row.transcript);
        EXPECT_EQ(bus.requests, std::vector<std::string>{row.request});
        EXPECT_EQ(bus.emptyReads, row.emptyReads) << row.transcript;
        EXPECT_EQ(textOf(form, "SendText"), "");
        EXPECT_TRUE(line().hasFocus());
        const QTextCursor caret = pad().textCursor();
        EXPECT_EQ(caret.selectionStart(), pad().document()->characterCount() - 2);
        EXPECT_EQ(caret.selectedText(), QString(QChar::ParagraphSeparator));
    }
    click(form, "Close");
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(TerminalFormTest, ShowsTheRequestBeforeThePauseAndTheMarkBehindIt) {
    open();
    const std::pair<const char*, std::chrono::milliseconds> table[] = {
        {"PX", 0ms},    {"STORE", 200ms}, {"STORE1", 0ms}, {"DN=ZLD05", 200ms},
        {"ZH+", 200ms}, {"SR0", 1000ms},  {"ZSR", 1200ms}, {"XSR", 1000ms}};
    for (const auto& [command, pause] : table) {
        watched.slept = 0ms;
        std::string shown;
        watched.look = [&] {
            shown = pad().toPlainText().toStdString();
            EXPECT_FALSE(pad().textCursor().selectedText().contains(QLatin1Char('@')));
        };
        talk(command);
        EXPECT_EQ(watched.slept, pause) << command;
        if (pause > 0ms) {
            EXPECT_TRUE(shown.ends_with(">@07" + std::string(command) + "\n")) << shown;
        }
    }
}

TEST_F(TerminalFormTest, SendsNothingToAMalformedAddress) {
    open();
    for (const char* typed : {"", "-1", "100", "1a", "-0.4", "0.6", "-0",
                              "\xE2\x88\x92"
                              "5",
                              "99999999999"}) {
        address(typed);
        gate.expectMessage("\"" + std::string(typed) +
                           "\" in the field \"Device ID\" is not an address from 0 to 99.  "
                           "Nothing was sent.");
        EXPECT_EQ(talk("PX"), "");
        EXPECT_TRUE(control<QWidget>(form, "DeviceID").hasFocus());
        EXPECT_EQ(shownAfter(Qt::Key_F1), "PX") << "to be sent once the address is mended";
    }
    EXPECT_TRUE(bus.requests.empty());
}

TEST_F(TerminalFormTest, RefusesWhatTheWireCannotCarry) {
    open();
    gate.expectMessageWith("U+2212");
    enter(QStringLiteral("X=\u22125"));
    EXPECT_EQ(textOf(form, "SendText"), "X=\u22125") << "to be mended";
    QApplication::clipboard()->setText(QStringLiteral("PX\r\nABORT"));
    line().clear();
    line().paste();
    gate.expectMessageWith("control character");
    press(form, "SendText", Qt::Key_Return);
    EXPECT_TRUE(bus.requests.empty());
}

TEST_F(TerminalFormTest, RecallsByItsOwnRuleAndWalksThroughTheCommands) {
    open();
    EXPECT_EQ(shownAfter(Qt::Key_F1), "");
    EXPECT_EQ(shownAfter(Qt::Key_Up), "");
    for (const char* command : {"PX", "EX", "EX", "CUR"})
        talk(command);
    line().setText(QStringLiteral("half"));
    EXPECT_EQ(shownAfter(Qt::Key_Up), "CUR");
    EXPECT_EQ(shownAfter(Qt::Key_Up), "EX");
    EXPECT_EQ(shownAfter(Qt::Key_F1), "CUR");
    EXPECT_EQ(shownAfter(Qt::Key_Up), "PX");
    EXPECT_EQ(shownAfter(Qt::Key_Up), "PX") << "the oldest";
    EXPECT_EQ(shownAfter(Qt::Key_Down), "EX");
    EXPECT_EQ(shownAfter(Qt::Key_Down), "CUR");
    EXPECT_EQ(shownAfter(Qt::Key_Down), "half");
    EXPECT_EQ(shownAfter(Qt::Key_Down), "half");

    bus.requests.clear();
    EXPECT_EQ(talk(""), "");
    EXPECT_TRUE(bus.requests.empty());
    EXPECT_EQ(shownAfter(Qt::Key_F1), "") << "an empty entry is the last one";
    EXPECT_EQ(shownAfter(Qt::Key_Up), "CUR") << "but it was never sent";
}

TEST_F(TerminalFormTest, SaysThatThePortIsNotThere) {
    handedOver.PortReady = false;
    TerminalForm closed(services, handedOver, nullptr);
    gate.expectMessage("Communication port not open!");
    closed.Form_Load();
    EXPECT_TRUE(bus.openings.empty());

    bus.opens = false;
    open();
    EXPECT_EQ(talk("PX"), ">@07PX\r\n<Com Port Error\r\n");
    EXPECT_EQ(textOf(form, "SendText"), "");
    EXPECT_EQ(shownAfter(Qt::Key_F1), "PX");
    EXPECT_EQ(pad().textCursor().selectedText(), QString(QChar::ParagraphSeparator));
}

TEST_F(TerminalFormTest, WritesDownThatThePortWasLost) {
    open();
    bus.losesAtReadOf = "EX";
    bus.answer = [this](const std::string&) {
        bus.feed("12");
        return std::nullopt;
    };
    EXPECT_EQ(talk("EX"), ">@07EX\r\n<12Com Port Error\r\n");
    EXPECT_EQ(talk("PX"), ">@07PX\r\n<Com Port Error\r\n");
    EXPECT_FALSE(programEnd.ended());
    form.close();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(TerminalFormTest, SavesTheTranscriptByteForByte) {
    const auto save = [this](std::optional<std::string> name) {
        gate.expectSaveDialog({"Save Terminal Text As", "Terminal Text Files (*.txt)|*.txt", ""},
                              std::move(name));
        return [this] { click(form, "Command2"); };
    };
    const auto saved = [this](const char* name) { return files.read(name, 1000).value_or("none"); };
    open();
    save(std::nullopt)();
    save("a*.txt")();
    EXPECT_EQ(saved("a*.txt"), "none");
    const auto saveEmpty = save("");
    gate.expectMessage("No Program Name!");
    saveEmpty();

    const auto saveNothing = save("\xC3\xA9.txt");
    gate.expectMessage("Save Done!");
    saveNothing();
    EXPECT_EQ(saved("\xC3\xA9.txt"), "\r\n\r\n");

    bus.replies["ID"] = "a\xA0\x80\xFF";
    talk("ID");
    const auto saveAgain = save("\xC3\xA9.txt");
    gate.expectMessage("Save Done!");
    saveAgain();
    EXPECT_EQ(saved("\xC3\xA9.txt"), ">@07ID\r\n<a\xA0\x80\xFF\r\n\r\n");

    const auto saveNowhere = save("no/such/folder.txt");
    gate.expectMessageWith("The text could not be saved in no/such/folder.txt: ");
    saveNowhere();
}

TEST_F(TerminalFormTest, KeepsStillUntilTheNextCommand) {
    open();
    for (int line = 0; line < 60; ++line)
        talk("PX");
    auto& bar = *pad().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(3);
    QTextCursor selection(pad().document());
    selection.setPosition(6, QTextCursor::KeepAnchor);
    pad().setTextCursor(selection);
    talk("");
    shownAfter(Qt::Key_Up);
    EXPECT_EQ(pad().textCursor().selectedText(), QStringLiteral(">@07PX"));
    EXPECT_LT(bar.value(), bar.maximum());
    talk("PX");
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST_F(TerminalFormTest, CopiesCharactersAsTheyCame) {
    open();
    bus.replies["ID"] = "a\xA0z";
    talk("ID");
    pad().selectAll();
    pad().copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral(">@07ID\n<a\u00A0z\n"));
}

}  // namespace
}  // namespace zlt::test
