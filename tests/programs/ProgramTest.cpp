#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <filesystem>

#include "LoadedPanel.h"
#include "programs/forms/ProgramEditor.h"
#include "programs/forms/ProgramFrame.h"

namespace zlt::test {
namespace {

const ProcessEnd exited{ProcessEnd::Kind::exited, {}};
const ProcessEnd crashed{ProcessEnd::Kind::crashed, {}, "a\nlast \x1B words\n"};
const ProcessEnd mute{ProcessEnd::Kind::exited, {}, "no disk"};
const ProcessEnd notStarted{ProcessEnd::Kind::notStarted, "no right"};

const FileChoice openChoice{"Open ZLT-R-NX Program", "ZLT-R-NX Program Files (*.prg)|*.prg",
                            "*.prg"};
const FileChoice saveChoice{"Save ZLT-R-NX Program As", "ZLT-R-NX Program Files (*.prg)|*.prg", ""};

class ProgramTest : public LoadedPanel {
 protected:
    ProgramTest() { std::filesystem::create_directory("EXE"); }

    bool saved() { return !frame.title().contains(QStringLiteral("not saved")); }
    std::string file(const std::string& name) { return files.read(name).whole().value_or("none"); }
    /// The compiler ends like this, and leaves a result where one is given.
    void compile(const ProcessEnd& end, const char* result = nullptr) {
        tools.run = [=, this](const std::string&) {
            if (result)
                files.writeWhole("EXE/CompileOut.txt", result);
            return end;
        };
        click(form, "CompileAll");
        EXPECT_TRUE(polls());
    }

    ProgramFrame& frame = control<ProgramFrame>(form, "ProgramFrame");
    ProgramEditor& editor = control<ProgramEditor>(form, "OrgProgram");
};

TEST_F(ProgramTest, OpensAndSavesFiles) {
    files.writeWhole("a.prg", "X1000\nV1=2\r\rEND \xA0");
    gate.expectOpenDialog(openChoice, "a.prg", [this] { EXPECT_FALSE(polls()); });
    click(form, "OpenProg");
    const std::string opened = "X1000\r\nV1=2\r\n\r\nEND \xA0\r\n";
    EXPECT_EQ(editor.program(), opened);
    EXPECT_TRUE(saved());

    editor.moveCursor(QTextCursor::End);
    editor.insertPlainText(QStringLiteral("last"));
    EXPECT_FALSE(saved());
    gate.expectSaveDialog(saveChoice, "b.prg", [this] { EXPECT_FALSE(polls()); });
    gate.expectMessage("Save Done!");
    click(form, "SaveProg");
    EXPECT_TRUE(polls());
    EXPECT_EQ(file("b.prg"), opened + "last\r\n");
    EXPECT_TRUE(saved());

    click(form, "NewProg");
    EXPECT_EQ(editor.program(), "");
    EXPECT_TRUE(saved());
    gate.expectSaveDialog(saveChoice, "b.prg");
    click(form, "SaveProg");
    EXPECT_EQ(file("b.prg"), "") << "and no message";
    editor.undo();
    EXPECT_EQ(editor.program(), opened + "last");
}

TEST_F(ProgramTest, KeepsTextAndFileWhereNoneIsReadOrWritten) {
    editor.insertPlainText(QStringLiteral("a\n\u2028b \u20AC"));
    gate.expectOpenDialog(openChoice, "none/a.prg");
    gate.expectMessage("File none/a.prg does not exist!");
    click(form, "OpenProg");
    files.writeWhole("old.prg", "old");
    gate.expectSaveDialog(saveChoice, "old.prg");
    gate.expectMessageWith("(U+20AC) in line 3");
    click(form, "SaveProg");
    EXPECT_EQ(file("old.prg"), "old");
    EXPECT_FALSE(saved());
    EXPECT_EQ(editor.textCursor().selectedText(), QStringLiteral("\u20AC"));
    EXPECT_EQ(form.focusWidget(), &editor);
}

TEST_F(ProgramTest, TellsAFileThatIsNoneAndTakesWhatOneThatBreaksOffGave) {
    files.writeWhole("a.prg", "X1\nX2\nX3");
    const auto open = [this](const char* name) {
        gate.expectOpenDialog(openChoice, name);
        click(form, "OpenProg");
        return editor.program();
    };
    EXPECT_EQ(open("a.prg"), "X1\r\nX2\r\nX3\r\n");
    gate.expectOpenDialog(openChoice, "/dev/null");
    gate.expectMessage("File /dev/null could not be read: it is a device, not a file.");
    click(form, "OpenProg");
    EXPECT_EQ(open("/proc/self/mem"), "X1\r\nX2\r\nX3\r\n") << "unreadable: silence";
    EXPECT_TRUE(saved());
    files.breaksAfter = 4;
    EXPECT_EQ(open("a.prg"), "X1\r\nX\r\n");
    EXPECT_FALSE(saved()) << "the box holds less than the file";
    gate.expectMessageWith("The tool's result CompileOut.txt cannot be read whole: bad sector.");
    compile(exited, "OK\n00 A\n");
    EXPECT_EQ(textOf(form, "CompiledLines"), "");
}

TEST_F(ProgramTest, CompilesAndShowsTheListing) {
    gate.expectMessage("Nothing to compile!");
    click(form, "CompileAll");
    click(form, "ViewCompiled");  // nothing compiled yet: nothing happens
    EXPECT_EQ(tools.started, Commands{});

    editor.setProgram("X1000\r\nEND");
    gate.expectMessage("Done!");
    compile(exited, "OK\n00 FAILED\n\xA0");
    EXPECT_EQ(tools.started, Commands{"SA_Compile_Decompile"});
    EXPECT_EQ(file("EXE/Program.prg"), "X1000\r\nEND\r\n");
    EXPECT_EQ(file("EXE/sa_compile_decompile_setup.txt"),
              "MOD:ZLT-R-NX-42\r\nOPE:COMPILE\r\nFIL:Program.prg\r\n");
    auto& count = control<QLabel>(form, "CompiledLines");
    EXPECT_EQ(count.text(), QStringLiteral("Lines:  2"));
    EXPECT_TRUE(count.isEnabled());
    editor.insertPlainText(QStringLiteral("Y"));
    EXPECT_FALSE(count.isEnabled()) << "that was another text";
    onScreen("ViewCompiled", [this](QWidget& viewer) {
        gate.expectSaveDialog(
            {"Save Compiled Program As", "Compiled Program Files (*.cpg)|*.cpg", ""}, "l.cpg");
        gate.expectMessage("Save Done!");
        click(viewer, "Save");
    });
    EXPECT_EQ(file("l.cpg"), "OK\r\n00 FAILED\r\n\xA0\r\n");
}

TEST_F(ProgramTest, SelectsTheFaultyLine) {
    const std::string longLine(2000, 'X');
    struct Row {
        const char* result;
        std::string selected;
        const char* message = nullptr;
    };
    const Row table[] = {{"FAILED\r\nLine: 1\r\n", "one"},
                         {"x Failed\r\nLine: 1\r\nLine  3\r\n", "\u2029three"},
                         {"FAILED\r\nLine 92\r\n", "\u2029two"},
                         {"FAILED\r\nLine: 4\r\n", "\u2029" + longLine},
                         {"FAILED\r\nLine: 9\r\n", ""},
                         {"FAILED\r\nLine: 32767\r\n", ""},
                         {"FAILED\r\nLine: 32768\r\n", "", "line beyond 32767"},
                         {"FAILED\r\nLine: 99999999999\r\n", "", "line beyond 32767"},
                         {"FAILED\r\nin Line2\r\n", "", "names no program line"}};
    editor.setProgram("one\r\ntwo\r\nthree\r\n" + longLine + "\r\n");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    for (const auto& [result, selected, message] : table) {
        editor.moveCursor(QTextCursor::Start);
        gate.expectMessage(result);
        if (message)
            gate.expectMessageWith(message);
        compile(exited, result);
        const auto cursor = editor.textCursor();
        EXPECT_EQ(cursor.selectedText().toStdString(), selected) << result;
        EXPECT_EQ(form.focusWidget() == &editor, cursor.hasSelection()) << result;
        EXPECT_EQ(editor.horizontalScrollBar()->value(), 0) << "the line's beginning is in view";
    }
}

TEST_F(ProgramTest, TellsTheFailuresOfAToolApart) {
    editor.setProgram("X1000");
    const auto resultAfter = [this](const ProcessEnd& end, const char* words,
                                    const char* written = nullptr) {
        files.writeWhole("EXE/CompileOut.txt", "old");
        gate.expectMessageWith(words);
        compile(end, written);
        return file("EXE/CompileOut.txt");
    };
    EXPECT_EQ(resultAfter(notStarted, "SA_Compile_Decompile is missing"), "old");
    files.writeWhole("EXE/SA_Compile_Decompile", "no program");
    EXPECT_EQ(resultAfter(notStarted, "cannot be started: no right"), "old");
    EXPECT_EQ(resultAfter(crashed, "by a fault, or was ended."), "old");
    EXPECT_EQ(resultAfter(crashed, "It printed:\r\n\r\na\r\nlast ? words\r\n", "OK\nA\n"), "old");
    EXPECT_EQ(resultAfter(mute, "CompileOut.txt.  It printed:\r\n\r\nno disk\r\n"), "old");
    std::filesystem::remove("EXE/CompileOut.txt");
    gate.expectMessageWith("Whatever it wrote is not used.");
    compile(crashed, "OK\nhalf a li");
    EXPECT_EQ(file("EXE/CompileOut.txt"), "none") << "a download would send it";
    EXPECT_EQ(textOf(form, "CompiledLines"), "");
    std::filesystem::remove_all("EXE");
    resultAfter(exited, "The folder of the external tools is missing");
}

/// Notes whether a control has been painted.
class PaintWatch : public QObject {
 public:
    explicit PaintWatch(QObject& watched) { watched.installEventFilter(this); }
    bool painted = false;

 private:
    bool eventFilter(QObject*, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
};

TEST_F(ProgramTest, SaysWhichToolRunsBeforeThePanelStandsStill) {
    editor.setProgram("X1000");
    auto& note = control<QLabel>(form, "toolNote");
    PaintWatch watch(note);
    EXPECT_FALSE(note.isVisible());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    tools.run = [&](const std::string&) {
        EXPECT_TRUE(watch.painted);
        EXPECT_TRUE(note.isVisible());
        EXPECT_TRUE(note.text().startsWith(
            QStringLiteral("SA_Compile_Decompile is running, process 4711.")));
        return mute;
    };
    gate.expectMessageWith("without writing its result");
    click(form, "CompileAll");
    EXPECT_FALSE(note.isVisible());
}

TEST_F(ProgramTest, DownloadsAndClearsWithThePortFree) {
    bus.replies["DN"] = "ZLD07";
    bus.replies["DB"] = "3";
    for (const auto& [button, operation] :
         {std::pair{"DownloadSAP", "DOWNLOAD"}, {"clearSpace", "CLEAR"}}) {
        files.writeWhole("EXE/DownloadOut.txt", "FAILED long ago");
        waits.slept = {};
        tools.run = [&](const std::string& tool) {
            EXPECT_EQ(tool, "SA_Download_Upload");
            EXPECT_EQ(bus.portsOpen, 0);
            EXPECT_EQ(waits.slept.count(), 2 * 200 + 100 + 100);
            EXPECT_EQ(bus.takeCommands(), (Commands{"SR0=0", "SR1=0", "DN", "DB"}));
            files.writeWhole("EXE/DownloadOut.txt", "fine\r\n");
            return exited;
        };
        gate.expectMessage("Done!", [this] { EXPECT_EQ(bus.portsOpen, 0); });
        click(form, button);
        EXPECT_EQ(file("EXE/sa_download_upload_setup.txt"),
                  std::string("LIN: 510\r\nCOM:SERIAL\r\nPOR: 3\r\nBAU:38400\r\nDEV:07\r\nOPE:") +
                      operation + "\r\nFIL:CompileOut.txt\r\nMOD:ZLT-R-NX-42\r\n");
        EXPECT_EQ(waits.slept.count(), 2 * 200 + 3 * 100);
        EXPECT_EQ(bus.portsOpen, 1);
        EXPECT_TRUE(polls());
    }
}

TEST_F(ProgramTest, TakesThePortBackWhateverTheToolDid) {
    tools.run = [](const std::string&) { return notStarted; };
    for (const char* button : {"DownloadSAP", "UploadSAP"}) {
        gate.expectMessageWith("SA_Download_Upload is missing");
        click(form, button);
        EXPECT_EQ(bus.portsOpen, 1);
        EXPECT_TRUE(polls());
    }
    tools.run = [this](const std::string&) {
        bus.opens = false;
        files.writeWhole("EXE/DownloadOut.txt", "Failed\r\nwhy");
        return exited;
    };
    gate.expectMessage("Failed\r\nwhy\r\n");
    gate.expectMessage(std::string(portNotAvailable));
    click(form, "DownloadSAP");
    EXPECT_EQ(shown("ComStatusDisplay"), "Invalid Port");
}

TEST_F(ProgramTest, StartsNoToolThatWouldGoToAnotherDevice) {
    bus.numberMeansAnother = true;
    for (const char* button : {"DownloadSAP", "clearSpace", "UploadSAP"}) {
        gate.expectMessageWith("COM3 does not stand for the connected device any more",
                               [this] { EXPECT_EQ(bus.portsOpen, 1); });
        click(form, button);
        EXPECT_TRUE(polls());
    }
    EXPECT_EQ(tools.started, Commands{});
    EXPECT_EQ(file("EXE/sa_download_upload_setup.txt"), "none");
}

TEST_F(ProgramTest, AsksTheLinkBeforeEachTransfer) {
    bus.silent = true;
    EXPECT_EQ(sentBy("DownloadSAP"), "SR0=0|SR1=0|DN|DB");
    gate.expectMessage("Communication not open!");
    EXPECT_EQ(sentBy("DownloadSAP") + sentBy("UploadSAP"), "");
    EXPECT_EQ(tools.started, Commands{});
}

TEST_F(ProgramTest, UploadsIntoTheBox) {
    bus.replies["DN"] = "ZLD42";
    bus.replies["DB"] = "none";
    files.writeWhole("EXE/UploadOut.txt", "another controller's");
    tools.run = [this](const std::string& tool) {
        if (tool == "SA_Download_Upload") {
            EXPECT_EQ(bus.takeCommands(), (Commands{"DN", "DB"}));
            EXPECT_EQ(bus.portsOpen, 0);
            EXPECT_EQ(file("EXE/UploadOut.txt"), "none") << "a stale image is no upload";
        } else {
            EXPECT_EQ(file("EXE/sa_compile_decompile_setup.txt"),
                      "MOD:ZLT-R-NX-42\r\nOPE:DECOMPILE\r\nFIL:UploadOut.txt\r\n");
            files.writeWhole("EXE/DecompileOut.prg", "FAILED\nno image");
        }
        return exited;
    };
    gate.expectMessage("FAILED\r\nno image\r\n");
    click(form, "UploadSAP");
    EXPECT_EQ(tools.started, (Commands{"SA_Download_Upload", "SA_Compile_Decompile"}));
    EXPECT_EQ(file("EXE/sa_download_upload_setup.txt"),
              "LIN:510\r\nCOM:SERIAL\r\nPOR: 3\r\nBAU:\r\nDEV:42\r\nOPE:UPLOAD\r\n"
              "FIL:CompileOut.txt\r\nMOD:ZLT-R-NX-42\r\n");
    EXPECT_EQ(editor.program(), "FAILED\r\nno image\r\n");
    editor.undo();
    EXPECT_EQ(editor.program(), "") << "as before the upload";
    editor.redo();
    tools.run = [](const std::string&) { return crashed; };
    gate.expectMessageWith("The tool SA_Download_Upload ended by a fault");
    click(form, "UploadSAP");
    EXPECT_EQ(editor.program(), "FAILED\r\nno image\r\n");
}

}  // namespace
}  // namespace zlt::test
