// The program editor over the panel: the panel's text, the panel's actions, the panel's link.

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "LoadedPanel.h"
#include "programs/forms/CodeEditor.h"
#include "programs/forms/ProgramFrame.h"

namespace zlt::test {
namespace {

const ProcessEnd wentWell{ProcessEnd::Kind::exited, {}};
const FileChoice saveDialog{"Save ZLT-R-NX Program As", "ZLT-R-NX Program Files (*.prg)|*.prg", ""};
constexpr auto ctrl = Qt::ControlModifier;

class ProgramEditFormTest : public LoadedPanel {
 protected:
    ProgramEditFormTest() { std::filesystem::create_directory("EXE"); }

    static bool inFront(QWidget& screen) {
        screen.activateWindow();
        return QTest::qWaitFor([&] { return screen.isActiveWindow(); });
    }
    /// Opens the editor and takes these steps in it; it is closed by its frame.
    void inEditor(const std::function<void(QWidget& screen, CodeEditor& text)>& steps) {
        clickAndWork(form, "OpenText", [&](QWidget& screen) {
            ASSERT_TRUE(inFront(screen));
            steps(screen, control<CodeEditor>(screen, "ProgramText"));
            screen.close();
        });
    }
    static std::string title(const QWidget& screen) { return screen.windowTitle().toStdString(); }
    std::string groupTitle() {
        return control<ProgramFrame>(form, "ProgramFrame").title().toStdString();
    }
    std::string file(const std::string& name) { return files.read(name).whole().value_or("none"); }
    /// The window comes to the front, and is left alone for a moment.
    static void comeToFront(QWidget& screen) {
        QEvent activated(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&screen, &activated);
        tick(screen, "fileWatchTimer");
    }
    /// Has compiler and downloader succeed with a listing of one line a line.
    void download(const std::string& listing) {
        bus.replies["DN"] = "ZLD01";
        bus.replies["DB"] = "1";
        tools.run = [=, this](const std::string& tool) {
            files.writeWhole(
                tool == "SA_Download_Upload" ? "EXE/DownloadOut.txt" : "EXE/CompileOut.txt",
                listing);
            return wentWell;
        };
    }

    ProgramEditor& box = control<ProgramEditor>(form, "OrgProgram");
};

TEST_F(ProgramEditFormTest, IsTheSameDocumentWithOneHistory) {
    box.setProgram("X1\r\nX2");
    box.moveCursor(QTextCursor::End);
    inEditor([this](QWidget& screen, CodeEditor& text) {
        EXPECT_EQ(text.document(), box.document());
        EXPECT_EQ(title(screen), "not saved \u2013 Program Editor");
        EXPECT_EQ(screen.focusWidget(), &text);
        EXPECT_EQ(textOf(screen, "place"), "Line 2 of 2, column 3")
            << "where the panel's cursor was";
        QTest::keyClicks(&text, QStringLiteral("5"));
        QTest::keyClick(&text, Qt::Key_Escape);
        EXPECT_TRUE(screen.isVisible());
        const QFont own = text.font();
        QTest::keyClick(&text, Qt::Key_Plus, ctrl);
        EXPECT_GT(text.font().pointSize(), own.pointSize());
    });
    EXPECT_EQ(box.program(), "X1\r\nX25");
    EXPECT_EQ(box.textCursor().position(), 6);
    EXPECT_EQ(box.document()->defaultFont(), box.font()) << "zoomed there, and not here";
    box.undo();
    EXPECT_EQ(box.program(), "X1\r\nX2");
}

TEST_F(ProgramEditFormTest, WorksByKeys) {
    inEditor([](QWidget& screen, CodeEditor& text) {
        text.setProgram("X1");
        text.moveCursor(QTextCursor::End);
        QTest::keyClick(&text, Qt::Key_Tab);
        QTest::keyClicks(&text, QStringLiteral("a"));
        QTest::keyClick(&text, Qt::Key_Home);
        QTest::keyClick(&text, Qt::Key_Tab);
        QTest::keyClick(&text, Qt::Key_End);
        QTest::keyClick(&text, Qt::Key_Return);
        QTest::keyClicks(&text, QStringLiteral("b"));
        EXPECT_EQ(text.program(), "    X1  a\r\n    b");
        text.selectAll();
        QTest::keyClick(&text, Qt::Key_Backtab, Qt::ShiftModifier);
        QTest::keyClick(&text, Qt::Key_Slash, ctrl);
        EXPECT_EQ(text.program(), "; X1  a\r\n; b");
        QTest::keyClick(&text, Qt::Key_Z, ctrl);
        EXPECT_EQ(text.program(), "X1  a\r\nb") << "a block is one step";
        QTest::keyClick(&text, Qt::Key_Tab, ctrl);
        EXPECT_NE(screen.focusWidget(), &text) << "the way out by keyboard";
    });
}

TEST_F(ProgramEditFormTest, FindsReplacesAndGoesToLines) {
    inEditor([](QWidget& screen, CodeEditor& text) {
        text.setProgram("X1\r\nx10\r\nX1");
        QTest::keyClick(&text, Qt::Key_F, ctrl);
        auto& what = control<QLineEdit>(screen, "FindText");
        EXPECT_EQ(screen.focusWidget(), &what);
        QTest::keyClicks(&what, QStringLiteral("x1"));
        QTest::keyClick(&what, Qt::Key_Return);
        QTest::keyClick(&text, Qt::Key_F3);
        EXPECT_EQ(text.textCursor().selectionStart(), 3);
        EXPECT_EQ(textOf(screen, "foundNote"), "2 of 3");
        QTest::keyClick(&what, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClick(&what, Qt::Key_Return, Qt::ShiftModifier);
        EXPECT_EQ(textOf(screen, "foundNote"), "3 of 3, round the end");

        QTest::keyClick(&what, Qt::Key_H, ctrl);
        auto& instead = control<QLineEdit>(screen, "ReplaceText");
        EXPECT_EQ(screen.focusWidget(), &instead);
        QTest::keyClicks(&instead, QStringLiteral("V"));
        QTest::keyClick(&instead, Qt::Key_Return);
        EXPECT_EQ(text.program(), "X1\r\nx10\r\nV");
        click(screen, "ReplaceAll");
        EXPECT_EQ(text.program(), "V\r\nV0\r\nV");
        text.undo();
        EXPECT_EQ(text.program(), "X1\r\nx10\r\nV") << "all of them are one step";
        QTest::keyClick(&instead, Qt::Key_Escape);
        EXPECT_FALSE(instead.isVisible());
        EXPECT_EQ(screen.focusWidget(), &text);

        for (const auto& [typed, line] :
             {std::pair{"2", 1}, {"9", 1}, {"x", 1}, {"0", 1}, {"3", 2}}) {
            QTest::keyClick(&text, Qt::Key_G, ctrl);
            auto& number = control<QLineEdit>(screen, "LineNumber");
            number.setText(QString::fromLatin1(typed));
            QTest::keyClick(&number, Qt::Key_Return);
            EXPECT_EQ(text.textCursor().blockNumber(), line) << typed;
        }
    });
}

TEST_F(ProgramEditFormTest, SavesToTheTextsOwnFileAndHeedsOtherPrograms) {
    ASSERT_TRUE(inFront(form));
    box.setProgram("X1");
    gate.expectSaveDialog(saveDialog, "a&b.prg");
    gate.expectMessage("Save Done!");
    QTest::keyClick(&box, Qt::Key_S, ctrl);
    EXPECT_EQ(groupTitle(), "Program \u2013 a&&b.prg");
    box.setProgram("X2");
    EXPECT_EQ(groupTitle(), "Program \u2013 a&&b.prg \u2013 not saved");
    inEditor([this](QWidget& screen, CodeEditor& text) {
        QTest::keyClick(&text, Qt::Key_S, ctrl);
        EXPECT_EQ(file("a&b.prg"), "X2\r\n") << "without another word";
        EXPECT_EQ(title(screen), "a&b.prg \u2013 Program Editor");
        files.writeWhole("a&b.prg", "theirs");
        gate.expectQuestion(
            "Program file changed",
            "The file a&b.prg was changed by another program.\r\nLoad it?  Undo brings the text "
            "here back.",
            true);
        comeToFront(screen);
        EXPECT_EQ(text.program(), "theirs\r\n");
        EXPECT_EQ(title(screen), "a&b.prg \u2013 Program Editor");
        comeToFront(screen);
    });
    ASSERT_TRUE(inFront(form));
    files.writeWhole("a&b.prg", "again");
    for (const bool over : {false, true}) {
        gate.expectQuestion(
            "Save", "The file a&b.prg was changed by another program.\r\nSave over it?", over);
        QTest::keyClick(&box, Qt::Key_S, ctrl);
        EXPECT_EQ(file("a&b.prg"), over ? "theirs\r\n" : "again");
    }
    files.writeWhole("a&b.prg", "once more");
    gate.expectQuestion(
        "Program file changed",
        "The file a&b.prg was changed by another program.\r\nLoad it?  Undo brings the text here "
        "back.",
        false);
    comeToFront(form);
    comeToFront(form);
    EXPECT_EQ(box.program(), "theirs\r\n");
    EXPECT_EQ(groupTitle(), "Program \u2013 a&&b.prg \u2013 not saved");
    std::filesystem::remove("a&b.prg");
    comeToFront(form);

    std::filesystem::create_directory("a&b.prg");
    gate.expectMessageWith("The text could not be saved in a&b.prg");
    QTest::keyClick(&box, Qt::Key_S, ctrl);
    for (const char* button : {"NewProg", "UploadSAP"}) {
        draft.file().belongsTo("a&b.prg", "");
        tools.run = [this](const std::string&) {
            files.writeWhole("EXE/DecompileOut.prg", "OK");
            return wentWell;
        };
        if (button == std::string_view("UploadSAP"))
            gate.expectMessage("Done!");
        click(form, button);
        EXPECT_FALSE(draft.file().known()) << button << " must not be saved over it";
    }
}

TEST_F(ProgramEditFormTest, GoesToEachLineThatTheCompilerNames) {
    tools.run = [this](const std::string&) {
        files.writeWhole("EXE/CompileOut.txt", "FAILED\nLine: 2\nLine: 3\n");
        return wentWell;
    };
    box.setProgram("one\r\ntwo\r\nthree");
    inEditor([this](QWidget& screen, CodeEditor& text) {
        EXPECT_FALSE(control<QPushButton>(screen, "errorLine").isVisible());
        gate.expectMessage("FAILED\r\nLine: 2\r\nLine: 3\r\n");
        click(screen, "CompileAll");
        EXPECT_EQ(file("EXE/Program.prg"), "one\r\ntwo\r\nthree\r\n");
        EXPECT_EQ(text.textCursor().blockNumber(), 2) << "the panel's own rule: the last one";
        EXPECT_EQ(textOf(screen, "errorLine"), "Error 1 of 2: line 2");
        click(screen, "errorLine");
        EXPECT_EQ(text.textCursor().blockNumber(), 1);
        text.moveCursor(QTextCursor::Start);
        text.insertPlainText(QStringLiteral("zero\n"));
        QTest::keyClick(&text, Qt::Key_F4);
        EXPECT_EQ(text.textCursor().selectedText(), QStringLiteral("\u2029three"));
        tools.run = [this](const std::string&) {
            files.writeWhole("EXE/CompileOut.txt", "OK\n00 A\n");
            return wentWell;
        };
        gate.expectMessage("Done!");
        QTest::keyClick(&text, Qt::Key_F7);
        EXPECT_FALSE(control<QPushButton>(screen, "errorLine").isVisible());
    });
    EXPECT_EQ(textOf(form, "CompiledLines"), "Lines:  1");
    EXPECT_TRUE(control<QLabel>(form, "CompiledLines").isEnabled());
}

TEST_F(ProgramEditFormTest, MarksTheRunningLineWhileTheTextIsTheControllers) {
    box.setProgram("X1\r\nX2\r\nEND");
    download("OK\n00 X1\n01 X2\n02 END\n");
    bus.replies["SPC"] = "1";
    bus.replies["SASTAT"] = "1";
    gate.expectMessage("Done!");
    click(form, "CompileAll");
    tick(form, "Timer1");
    EXPECT_EQ(box.runningLine(), std::nullopt) << "not sent yet";
    inEditor([this](QWidget& screen, CodeEditor& text) {
        gate.expectMessage("Done!");
        click(screen, "DownloadSAP");
        EXPECT_EQ(bus.portsOpen, 1);
        bus.takeCommands();
        tick(form, "Timer1");
        EXPECT_EQ(sent(), "") << "the panel's own timer rests";
        tick(screen, "followTimer");
        EXPECT_EQ(sent(), "CUR|PX|EX|MST|EO|MM|DO|SPC|SASTAT");
        EXPECT_EQ(text.runningLine(), 2);
        QTest::keyClicks(&text, QStringLiteral(";"));
        EXPECT_EQ(text.runningLine(), std::nullopt);
        tick(screen, "followTimer");
        EXPECT_EQ(sent(), "") << "nothing more is asked while another text is written";
        text.undo();
        tick(screen, "followTimer");
        EXPECT_EQ(text.runningLine(), 2);
        sent();
        bus.silentAt = "SPC";
        tick(screen, "followTimer");
        EXPECT_EQ(text.runningLine(), std::nullopt) << "the zero stands for no reply";
        bus.silentAt.reset();
        sent();
        tick(screen, "followTimer");
        EXPECT_EQ(sent(), "") << "a silent controller must not hold up the typing";
    });
    EXPECT_EQ(box.runningLine(), std::nullopt);
    tick(form, "Timer1");
    tick(form, "Timer1");
    EXPECT_EQ(box.runningLine(), 2) << "the panel's box has the mark too";
    bus.replies["SASTAT"] = "0";
    tick(form, "Timer1");
    EXPECT_EQ(box.runningLine(), std::nullopt);
    bus.replies["SASTAT"] = "2";
    choose(form, "SelectedDeviceID", "02");
    tick(form, "Timer1");
    EXPECT_EQ(box.runningLine(), std::nullopt) << "another controller";
}

TEST_F(ProgramEditFormTest, StopsByThePanelsLink) {
    click(form, "Command5");
    inEditor([this](QWidget& screen, CodeEditor& text) {
        bus.takeCommands();
        QTest::keyClick(&text, Qt::Key_F12);
        EXPECT_EQ(sent(), "HSPD=5000|ACC=250|ABORT");
        QTest::mousePress(&control<QWidget>(screen, "ISTOP"), Qt::LeftButton);
        EXPECT_EQ(sent(), "HSPD=5000|ACC=250|ABORT");
        gate.expectMessage("Nothing to compile!", [this, &screen] {
            QTest::keyClick(&screen, Qt::Key_F12);
            EXPECT_EQ(sent(), "HSPD=5000|ACC=250|ABORT") << "under a box";
        });
        click(screen, "CompileAll");
        EXPECT_EQ(bus.portsOpen, 1);
        bus.losesAtWriteOf = "ABORT";
        gate.expectMessageWith("Communication Error!");
        gate.expectMessage(std::string(portNotAvailable));
        QTest::keyClick(&text, Qt::Key_F12);
        EXPECT_FALSE(screen.isVisible());
    });
    EXPECT_EQ(shown("Command5"), "off");
    EXPECT_TRUE(programEnd.ended());
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ProgramEditFormTest, FindsOnThePanelToo) {
    ASSERT_TRUE(inFront(form));
    box.setProgram("A\r\nB");
    QTest::keyClick(&control<QWidget>(form, "SetSpeed"), Qt::Key_F, ctrl);
    auto& what = control<QLineEdit>(form, "FindText");
    QTest::keyClicks(&what, QStringLiteral("b"));
    QTest::keyClick(&what, Qt::Key_Return);
    EXPECT_EQ(box.textCursor().selectedText(), QStringLiteral("B"));
    EXPECT_FALSE(control<QWidget>(form, "ReplaceText").isVisible());
    QTest::keyClick(&what, Qt::Key_Escape);
    EXPECT_FALSE(what.isVisible());
    EXPECT_EQ(form.focusWidget(), &box);
    EXPECT_TRUE(form.isVisible());
}

}  // namespace
}  // namespace zlt::test
