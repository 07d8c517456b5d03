#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <filesystem>
#include <fstream>

#include "panel/MainControlForm.h"
#include "programs/ProgramEditor.h"
#include "programs/ProgramFrame.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {
namespace {

using Commands = std::vector<std::string>;
using Kind = ProcessEnd::Kind;

const FileChoice openChoice{"Open ZLT-R-NX Program", "ZLT-R-NX Program Files (*.prg)|*.prg",
                            "*.prg"};
const FileChoice saveChoice{"Save ZLT-R-NX Program As", "ZLT-R-NX Program Files (*.prg)|*.prg", ""};
const FileChoice saveListingChoice{"Save Compiled Program As",
                                   "Compiled Program Files (*.cpg)|*.cpg", ""};

class ProgramTest : public ::testing::Test, public World {
 protected:
    ProgramTest() {
        std::filesystem::create_directory("EXE");
        answerAsController();
        form.Form_Load({{3}, "9600", "01"});
        form.show();
        bus.takeCommands();
    }
    void type(const char* text) { editor().setProgram(text); }
    ProgramEditor& editor() { return control<ProgramEditor>(form, "OrgProgram"); }
    std::string program() { return editor().program(); }
    std::string title() {
        return control<ProgramFrame>(form, "programFrame").title().toStdString();
    }
    std::string file(const std::string& name) { return files.read(name, 100'000).value_or("none"); }
    static void put(const std::string& name, const std::string& bytes) {
        std::ofstream(name, std::ios::binary) << bytes;
    }
    /// The next tool run ends like this, leaving a result file.
    void toolWrites(const std::string& name, const std::string& bytes, Kind kind = Kind::exited) {
        tools.run = [=, this](const std::string&) {
            EXPECT_EQ(bus.takeCommands(), Commands{});
            put("EXE/" + name, bytes);
            return ProcessEnd{kind, {}};
        };
    }
    bool polls() {
        tick(form, "Timer1");
        return !bus.takeCommands().empty();
    }

    MainControlForm form{services, nullptr};
};

TEST_F(ProgramTest, OpensAndSavesFiles) {
    put("a.prg", "X1000\nV1=2\r\rEND \xA0");
    gate.expectOpenDialog(openChoice, "a.prg", [this] { EXPECT_FALSE(polls()); });
    click(form, "OpenProg");
    EXPECT_TRUE(polls());
    EXPECT_EQ(program(), "X1000\r\nV1=2\r\n\r\nEND \xA0\r\n");
    EXPECT_EQ(title(), "Program");

    editor().moveCursor(QTextCursor::End);
    editor().insertPlainText(QStringLiteral("last"));
    EXPECT_EQ(title(), "Program \u2013 not saved");
    gate.expectSaveDialog(saveChoice, "b.prg", [this] { EXPECT_FALSE(polls()); });
    gate.expectMessage("Save Done!");
    click(form, "SaveProg");
    EXPECT_EQ(file("b.prg"), "X1000\r\nV1=2\r\n\r\nEND \xA0\r\nlast\r\n");
    EXPECT_EQ(title(), "Program");

    click(form, "NewProg");
    EXPECT_EQ(program(), "");
    editor().undo();
    EXPECT_NE(program(), "");
}

TEST_F(ProgramTest, AnswersEachNameOfAFileInItsWay) {
    type("keep");
    for (const char* silent : {"*.prg", "a*b.prg", ""}) {
        gate.expectOpenDialog(openChoice, silent);
        click(form, "OpenProg");
    }
    gate.expectOpenDialog(openChoice, std::nullopt);
    click(form, "OpenProg");
    gate.expectOpenDialog(openChoice, "gone.prg");
    gate.expectMessage("File gone.prg does not exist!");
    click(form, "OpenProg");
    EXPECT_EQ(program(), "keep");

    gate.expectSaveDialog(saveChoice, "");
    gate.expectMessage("No Program Name!");
    click(form, "SaveProg");
    for (const char* silent : {"*.prg", "no-folder/a.prg"}) {
        gate.expectSaveDialog(saveChoice, silent);
        click(form, "SaveProg");
    }
    gate.expectSaveDialog(saveChoice, std::nullopt);
    click(form, "SaveProg");

    type("");
    gate.expectSaveDialog(saveChoice, "empty.prg");
    click(form, "SaveProg");
    EXPECT_EQ(file("empty.prg"), "");
    EXPECT_EQ(title(), "Program");

    editor().setPlainText(QStringLiteral("a\nb \u20AC"));
    put("old.prg", "old");
    gate.expectSaveDialog(saveChoice, "old.prg");
    gate.expectMessageWith("(U+20AC) in line 2");
    click(form, "SaveProg");
    EXPECT_EQ(file("old.prg"), "old");
}

TEST_F(ProgramTest, CompilesThroughTheFilesOfTheCompiler) {
    gate.expectMessage("Nothing to compile!");
    click(form, "CompileAll");
    EXPECT_TRUE(tools.started.empty());

    type("X1000\r\nEND");
    std::string listing = "OK\r\n";
    for (int line = 0; line < 57; ++line)
        listing += "line failed\r\n";
    toolWrites("CompileOut.txt", listing, Kind::crashed);
    gate.expectMessage("Done!");
    click(form, "CompileAll");
    EXPECT_EQ(tools.started, Commands{"SA_Compile_Decompile"});
    EXPECT_EQ(file("EXE/Program.prg"), "X1000\r\nEND\r\n");
    EXPECT_EQ(file("EXE/sa_compile_decompile_setup.txt"),
              "MOD:ZLT-R-NX-42\r\nOPE:COMPILE\r\nFIL:Program.prg\r\n");
    EXPECT_EQ(textOf(form, "CompiledLines"), "Lines:  57");

    toolWrites("CompileOut.txt", "failed");
    gate.expectMessage("Done!");
    click(form, "CompileAll");
    EXPECT_EQ(textOf(form, "CompiledLines"), "Lines:  0");
    EXPECT_TRUE(polls());
}

TEST_F(ProgramTest, SelectsTheFaultyLine) {
    type("one\r\ntwo\r\nthree\r\n");
    const std::string noNumber =
        "The compiler's result names no program line that it stumbled over.";
    struct Row {
        const char *result, *shown, *selected;
        bool numbered;
    };
    const Row table[] = {
        {"FAILED\r\nLine: 1", "FAILED\r\nLine: 1\r\n", "one", true},
        {"x Failed\nLine: 1\nLine  3\n", "x Failed\r\nLine: 1\r\nLine  3\r\n", "\u2029three", true},
        {"FAILED\r\nin Line2\r\n", "FAILED\r\nin Line2\r\n", "", false},
        {"FAILED\r\nXLineX2\r\n", "FAILED\r\nXLineX2\r\n", "\u2029two", true},
        {"FAILED\r\nLine: 9\r\n", "FAILED\r\nLine: 9\r\n", "", true},
        {"FAILED\r\nLine: 0\r\n", "FAILED\r\nLine: 0\r\n", "", true},
        {"FAILED", "FAILED\r\n", "", false},
        {"FAILED\r\nLine: 40000\r\n", "FAILED\r\nLine: 40000\r\n", "", false},
        {"FAILED\r\nLine\r\n", "FAILED\r\nLine\r\n", "", false},
    };
    for (const Row& row : table) {
        editor().moveCursor(QTextCursor::Start);
        toolWrites("CompileOut.txt", row.result);
        gate.expectMessage(row.shown);
        if (!row.numbered)
            gate.expectMessage(noNumber);
        click(form, "CompileAll");
        EXPECT_EQ(editor().textCursor().selectedText().toStdString(), row.selected) << row.result;
    }
    EXPECT_EQ(textOf(form, "CompiledLines"), "");
}

TEST_F(ProgramTest, TellsTheFailuresOfAToolApart) {
    type("X1000");
    const auto compile = [&](const char* words, const ProcessEnd& end) {
        put("EXE/CompileOut.txt", "OK\r\nold\r\n");
        tools.run = [end](const std::string&) { return end; };
        gate.expectMessageWith(words);
        click(form, "CompileAll");
        EXPECT_TRUE(polls());
        return file("EXE/CompileOut.txt");
    };
    EXPECT_EQ(compile("SA_Compile_Decompile is missing", {Kind::notStarted, "x"}), "OK\r\nold\r\n");
    put("EXE/SA_Compile_Decompile", "no program");
    EXPECT_EQ(compile("cannot be started: no right", {Kind::notStarted, "no right"}),
              "OK\r\nold\r\n");
    EXPECT_EQ(compile("ended by a fault before it wrote its result, the file CompileOut.txt",
                      {Kind::crashed, ""}),
              "none");
    EXPECT_EQ(
        compile("ended without writing its result, the file CompileOut.txt", {Kind::exited, ""}),
        "none");
    std::filesystem::remove_all("EXE");
    gate.expectMessageWith("The folder of the external tools is missing");
    click(form, "CompileAll");
}

TEST_F(ProgramTest, ShowsAndSavesTheListing) {
    click(form, "ViewCompiled");  // nothing compiled yet: nothing happens
    put("EXE/CompileOut.txt", "OK\n00 X1000\n\xA0");
    QTimer::singleShot(0, &form, [this] {
        QWidget* viewer = QApplication::activeModalWidget();
        ASSERT_TRUE(viewer);
        EXPECT_FALSE(polls());
        gate.expectSaveDialog(saveListingChoice, "l.cpg");
        gate.expectMessage("Save Done!");
        click(*viewer, "Save");
        press(*viewer, "ProgText", Qt::Key_Escape);
        EXPECT_TRUE(viewer->isVisible());
        click(*viewer, "Close");
    });
    click(form, "ViewCompiled");
    EXPECT_EQ(file("l.cpg"), "OK\r\n00 X1000\r\n\xA0\r\n");
    EXPECT_TRUE(polls());
}

TEST_F(ProgramTest, DownloadsAndClearsWithThePortFree) {
    bus.replies["DN"] = "ZLD07";
    bus.replies["DB"] = "3";
    for (const auto& [button, operation] :
         {std::pair{"DownloadSAP", "DOWNLOAD"}, {"clearSpace", "CLEAR"}}) {
        put("EXE/DownloadOut.txt", "FAILED long ago");
        waits.slept = {};
        tools.run = [&](const std::string&) {
            EXPECT_EQ(bus.portsOpen, 0);
            EXPECT_EQ(waits.slept.count(), 2 * 200 + 100 + 100);
            EXPECT_EQ(bus.takeCommands(), (Commands{"SR0=0", "SR1=0", "DN", "DB"}));
            put("EXE/DownloadOut.txt", "fine\r\n");
            return ProcessEnd{Kind::exited, {}};
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
    EXPECT_EQ(tools.started, (Commands{"SA_Download_Upload", "SA_Download_Upload"}));
}

TEST_F(ProgramTest, TakesThePortBackWhateverTheToolDid) {
    tools.run = [](const std::string&) { return ProcessEnd{Kind::notStarted, "x"}; };
    for (const char* button : {"DownloadSAP", "clearSpace", "UploadSAP"}) {
        gate.expectMessageWith("SA_Download_Upload is missing");
        click(form, button);
        EXPECT_EQ(bus.portsOpen, 1);
        bus.takeCommands();
        EXPECT_TRUE(polls());
    }
    tools.run = [this](const std::string&) {
        bus.opens = false;
        put("EXE/DownloadOut.txt", "Failed\r\nwhy");
        return ProcessEnd{Kind::exited, {}};
    };
    type("text");
    gate.expectMessage("Failed\r\nwhy\r\n");
    gate.expectMessage(std::string(portNotAvailable));
    click(form, "DownloadSAP");
    EXPECT_EQ(textOf(form, "ComStatusDisplay"), "Invalid Port");
    EXPECT_FALSE(programEnd.ended());
    bus.takeCommands();
    EXPECT_FALSE(polls());
    EXPECT_EQ(program(), "text");
}

TEST_F(ProgramTest, AsksTheLinkBeforeEachTransfer) {
    const auto silentAt = [this](const char* command) {
        bus.answer = [=, this](const std::string& request) -> std::optional<std::string> {
            if (request.substr(3) == command)
                return std::nullopt;
            const auto known = bus.replies.find(request.substr(3));
            return known == bus.replies.end() ? "OK" : known->second;
        };
    };
    silentAt("SR0=0");
    click(form, "DownloadSAP");
    EXPECT_EQ(bus.takeCommands(), (Commands{"SR0=0", "SR1=0", "DN", "DB"}));
    EXPECT_TRUE(tools.started.empty());
    for (const char* button : {"DownloadSAP", "clearSpace"}) {
        gate.expectMessage("Communication not open!");
        click(form, button);
    }
    click(form, "UploadSAP");
    EXPECT_EQ(bus.takeCommands(), Commands{});
}

TEST_F(ProgramTest, UploadsIntoTheBox) {
    bus.replies["DN"] = "ZLD42";
    bus.replies["DB"] = "none";
    type("before");
    put("EXE/UploadOut.txt", "another controller's");
    tools.run = [this](const std::string& tool) {
        if (tool == "SA_Download_Upload") {
            EXPECT_EQ(bus.takeCommands(), (Commands{"DN", "DB"}));
            EXPECT_EQ(bus.portsOpen, 0);
            EXPECT_EQ(file("EXE/UploadOut.txt"), "none") << "a stale image is no upload";
        } else {
            EXPECT_EQ(file("EXE/sa_compile_decompile_setup.txt"),
                      "MOD:ZLT-R-NX-42\r\nOPE:DECOMPILE\r\nFIL:UploadOut.txt\r\n");
            put("EXE/DecompileOut.prg", "FAILED\nno image");
        }
        return ProcessEnd{Kind::exited, {}};
    };
    gate.expectMessage("FAILED\r\nno image\r\n");
    click(form, "UploadSAP");
    EXPECT_EQ(tools.started, (Commands{"SA_Download_Upload", "SA_Compile_Decompile"}));
    EXPECT_EQ(file("EXE/sa_download_upload_setup.txt"),
              "LIN:510\r\nCOM:SERIAL\r\nPOR: 3\r\nBAU:\r\nDEV:42\r\nOPE:UPLOAD\r\n"
              "FIL:CompileOut.txt\r\nMOD:ZLT-R-NX-42\r\n");
    EXPECT_EQ(program(), "FAILED\r\nno image\r\n");
    editor().undo();
    EXPECT_EQ(program(), "before");
    tools.run = [](const std::string&) { return ProcessEnd{Kind::crashed, {}}; };
    gate.expectMessageWith("The tool SA_Download_Upload ended by a fault");
    click(form, "UploadSAP");
    EXPECT_EQ(program(), "before");
    EXPECT_EQ(bus.portsOpen, 1);
    EXPECT_TRUE(polls());
}

}  // namespace
}  // namespace zlt::test
