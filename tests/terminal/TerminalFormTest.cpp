#include <QApplication>
#include <QClipboard>
#include <filesystem>

#include "support/World.h"
#include "terminal/CommandLine.h"
#include "terminal/Entering.h"
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
    std::string shownAfter(Qt::Key key) { return test::shownAfter(form, "SendText", key); }

    LinkHandOver handedOver{true, true, {{3}, "9600", "07"}, {}};
    WatchedWaits watched;
    Services watchedServices{gate, watched, files, help, programEnd, tools, {}, services.makePort};
    TerminalForm form{watchedServices, handedOver, nullptr};
    CommandLine& line = control<CommandLine>(form, "SendText");
    Transcript& pad = control<Transcript>(form, "Pad");
};

TEST_F(TerminalFormTest, WritesDownBothSidesAsTheyWere) {
    EXPECT_EQ(bus.openings, std::vector<std::string>{"3 9600,N,8,1"});
    EXPECT_EQ(textOf(form, "DeviceID"), "07");
    EXPECT_TRUE(line.hasFocus());
    const auto enters = [this](const char* address, const char* command) {
        const std::string added = talk(address, command);
        EXPECT_EQ(textOf(form, "SendText"), "");
        EXPECT_TRUE(line.hasFocus());
        EXPECT_EQ(pad.textCursor().selectionStart(), pad.document()->characterCount() - 2);
        EXPECT_EQ(pad.textCursor().selectedText(), QString(QChar::ParagraphSeparator));
        return added;
    };
    expectTalks(bus,
                {{"07", "PX", "#071500", ">@07PX\r\n<#071500\r\n", "@07PX"},
                 {"5", "PX", "1", ">@05PX\r\n<1\r\n", "@05PX"},
                 {" 005 ", "PX", "", ">@05PX\r\n<\r\n", "@05PX"},
                 {"99", "x y=", "\xA0\xE9\n", ">@99x y=\r\n<\xA0\xE9\n\r\n", "@99x y="},
                 {"07", "PX", std::nullopt, ">@07PX\r\n<NO REPLY!\r\n", "@07PX", 101},
                 {"00", "ABORT", std::nullopt, ">@00ABORT\r\n<BROADCAST SENT!\r\n", "@00ABORT"},
                 {"0", "EO=0", std::nullopt, ">@00EO=0\r\n<BROADCAST SENT!\r\n", "@00EO=0"}},
                enters);
    bus.losesAtReadOf = "EX";
    bus.silent = true;
    bus.answer = [this](const std::string&) {
        bus.feed("12");
        return std::nullopt;
    };
    EXPECT_EQ(enters("07", "EX"), ">@07EX\r\n<12Com Port Error\r\n");
    EXPECT_EQ(enters("07", "PX"), ">@07PX\r\n<Com Port Error\r\n");
    EXPECT_FALSE(programEnd.ended());
    click(form, "Close");
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(TerminalFormTest, ShowsTheRequestBeforeThePauseAndTheMarkBehindIt) {
    const std::pair<const char*, std::chrono::milliseconds> table[] = {
        {"PX", 0ms},    {"STORE", 200ms}, {"STORE1", 0ms}, {"DN=ZLD05", 200ms},
        {"ZH+", 200ms}, {"SR0", 1000ms},  {"ZSR", 1200ms}, {"XSR", 1000ms}};
    for (const auto& [command, pause] : table) {
        watched.slept = 0ms;
        std::string shown = ">@07" + std::string(command) + "\n";
        watched.look = [&] {
            EXPECT_TRUE(pad.toPlainText().toStdString().ends_with(shown)) << shown;
            EXPECT_FALSE(pad.textCursor().selectedText().contains(QLatin1Char('@')));
        };
        talk("07", command);
        EXPECT_EQ(watched.slept, pause) << command;
    }
}

TEST_F(TerminalFormTest, SendsNothingToAMalformedAddress) {
    for (const char* typed :
         {"", "-1", "100", "1a", "-0.4", "0.6", "-0", "\u22125", "99999999999"}) {
        gate.expectMessage("\"" + std::string(typed) +
                           "\" in the field \"Device ID\" is not an address from 0 to 99.  "
                           "Nothing was sent.");
        EXPECT_EQ(talk(typed, "PX"), "");
        EXPECT_TRUE(control<QWidget>(form, "DeviceID").hasFocus());
        EXPECT_EQ(shownAfter(Qt::Key_F1), "PX") << "to be sent once the address is mended";
    }
    EXPECT_TRUE(bus.requests.empty());
}

TEST_F(TerminalFormTest, RefusesWhatTheWireCannotCarry) {
    gate.expectMessageWith("U+2212");
    talk("07", "X=\u22125");
    EXPECT_EQ(textOf(form, "SendText"), "X=\u22125") << "to be mended";
    for (const char* pasted : {"PX\r\nABORT", "PX\x1B"}) {
        QApplication::clipboard()->setText(QString::fromLatin1(pasted));
        line.clear();
        line.paste();
        gate.expectMessageWith("control character");
        press(form, "SendText", Qt::Key_Return);
    }
    EXPECT_TRUE(bus.requests.empty());
}

TEST_F(TerminalFormTest, RecallsByItsOwnRuleAndWalksThroughTheCommands) {
    EXPECT_EQ(shownAfter(Qt::Key_F1), "");
    EXPECT_EQ(shownAfter(Qt::Key_Up), "");
    for (const char* command : {"PX", "EX", "EX", "CUR"})
        talk("07", command);
    line.setText(QStringLiteral("half"));
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

TEST_F(TerminalFormTest, SaysThatThePortIsNotThere) {
    handedOver.PortReady = false;
    TerminalForm closed(services, handedOver, nullptr);
    gate.expectMessage("Communication port not open!");
    closed.Form_Load();
    EXPECT_EQ(bus.portsOpen, 1) << "that of the other form";

    bus.opens = false;
    form.Form_Load();
    EXPECT_EQ(talk("07", "PX"), ">@07PX\r\n<Com Port Error\r\n");
}

TEST_F(TerminalFormTest, SavesAndCopiesTheTranscriptAsItIs) {
    using Text = std::optional<std::string>;
    const auto save = [this](const Text& name, const Text& message, const Text& saved) {
        gate.expectSaveDialog({"Save Terminal Text As", "Terminal Text Files (*.txt)|*.txt", ""},
                              name);
        if (message)
            gate.expectMessageWith(*message);
        click(form, "Command2");
        EXPECT_EQ(files.read("\xC3\xA9.txt", 1000), saved);
        std::filesystem::remove("\xC3\xA9.txt");
    };
    save("\xC3\xA9.txt", "Save Done!", "\r\n\r\n");
    bus.replies["ID"] = "a\xA0\x80\xFF";
    talk("07", "ID");
    save("\xC3\xA9.txt", "Save Done!", ">@07ID\r\n<a\xA0\x80\xFF\r\n\r\n");
    save({}, {}, {});
    save("a*.txt", {}, {});
    save("", "No Program Name!", {});
    save("no/folder.txt", "The text could not be saved in no/folder.txt: ", {});
    EXPECT_TRUE(std::filesystem::is_empty("."));
    pad.selectAll();
    pad.copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral(">@07ID\n<a\u00A0\u0080\u00FF\n"));
}

}  // namespace
}  // namespace zlt::test
