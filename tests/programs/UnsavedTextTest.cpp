#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <optional>
#include <set>

#include "app/SelectComForm.h"
#include "link/Flavour.h"
#include "programs/forms/ProgramEditor.h"
#include "programs/forms/ProgramFrame.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {
namespace {

class UnsavedTextTest : public ::testing::Test, public World {
 protected:
    UnsavedTextTest() {
        answerAsController();
        start();
    }
    /// Starts the program, anew where it has ended.
    void start() {
        form.reset();
        programEnd = {};
        QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
        QCoreApplication::exec();
        form.emplace(services, directory);
        form->Form_Load();
        form->show();
    }
    void onPanel(const std::function<void(QWidget& panel, ProgramEditor& box)>& work,
                 const char* button = "Command25") {
        clickAndWork(*form, button, [&](QWidget& panel) {
            work(panel, control<ProgramEditor>(panel, "OrgProgram"));
            panel.close();
        });
    }
    /// Connects and leaves this text in the program box.
    void type(const char* text) {
        onPanel([&](QWidget&, ProgramEditor& box) { box.setProgram(text); });
    }
    static bool saved(QWidget& panel) {
        const QString title = control<ProgramFrame>(panel, "ProgramFrame").title();
        return !title.contains(QStringLiteral("not saved"));
    }
    bool offered() { return control<QWidget>(*form, "unsavedRow").isVisible(); }
    /// What is kept for the next start, in alphabetical order, a bar before each text.
    std::string kept() {
        std::set<std::string> texts;
        for (const auto& entry : std::filesystem::directory_iterator(services.dataFolder))
            if (entry.path().extension() == ".txt")
                texts.insert("|" + files.read(entry.path()).whole().value_or("unreadable"));
        return std::accumulate(texts.begin(), texts.end(), std::string());
    }

    std::optional<SelectComForm> form;
};

TEST_F(UnsavedTextTest, StaysWithMarkAndUndoStepsFromOneConnectToTheNext) {
    onPanel([](QWidget&, ProgramEditor& box) {
        box.insertPlainText(QStringLiteral("X1000"));
        box.setProgram("X2000");
    });
    onPanel([](QWidget& panel, ProgramEditor& box) {
        EXPECT_EQ(box.program(), "X2000");
        EXPECT_FALSE(saved(panel));
        box.undo();
        EXPECT_EQ(box.program(), "X1000");
        click(panel, "NewProg");
        EXPECT_TRUE(saved(panel));
    });
    onPanel([](QWidget& panel, ProgramEditor& box) {
        EXPECT_EQ(box.program(), "");
        EXPECT_TRUE(saved(panel));
        box.undo();
        EXPECT_EQ(box.program(), "X1000");
        click(panel, "NewProg");
    });
    click(*form, "Close");
    EXPECT_EQ(kept(), "") << "New drops it";
}

TEST_F(UnsavedTextTest, IsKeptForTheNextStartHoweverTheProgramEnds) {
    const std::pair<const char*, std::function<void(QWidget&)>> table[] = {
        {"a failure",
         [this](QWidget& panel) {
             bus.losesAtWriteOf = "PX";
             gate.indifferent = true;
             tick(panel, "Timer1");
             gate.indifferent = false;
         }},
        {"a signal",
         [this](QWidget& panel) {
             programEnd.askForEnd(143);
             static_cast<QDialog&>(panel).reject();
         }},
        {"Close", [](QWidget& panel) { click(panel, "Command2"); }}};
    for (const auto& [how, end] : table) {
        SCOPED_TRACE(how);
        EXPECT_FALSE(offered());
        clickAndWork(*form, "Command25", [&end = end](QWidget& panel) {
            control<ProgramEditor>(panel, "OrgProgram")
                .insertPlainText(QStringLiteral("a\n\u20AC"));
            end(panel);
        });
        if (!programEnd.ended())
            click(*form, "Close");
        EXPECT_EQ(kept(), "|a\r\n\u20AC");
        bus.losesAtWriteOf.reset();
        start();
        ASSERT_TRUE(offered());
        onPanel(
            [this](QWidget& panel, ProgramEditor& box) {
                EXPECT_EQ(box.toPlainText(), QStringLiteral("a\n\u20AC"));
                EXPECT_FALSE(saved(panel));
                EXPECT_EQ(panel.focusWidget(), &box);
                EXPECT_EQ(kept(), "|a\r\n\u20AC") << "it is not saved yet";
                box.setProgram("a");
                gate.expectSaveDialog(
                    {"Save ZLT-R-NX Program As", "ZLT-R-NX Program Files (*.prg)|*.prg", ""},
                    "a.prg");
                gate.expectMessage("Save Done!");
                click(panel, "SaveProg");
                EXPECT_EQ(kept(), "");
            },
            "openUnsaved");
        EXPECT_FALSE(offered());
        start();
    }
}

TEST_F(UnsavedTextTest, IsKeptBeforeEachToolRuns) {
    std::filesystem::create_directory("EXE");
    tools.run = [this](const std::string&) {
        EXPECT_EQ(kept(), "|X1000");
        return ProcessEnd{ProcessEnd::Kind::crashed, {}, {}};
    };
    onPanel([this](QWidget& panel, ProgramEditor& box) {
        box.insertPlainText(QStringLiteral("X1000"));
        gate.expectMessageWith("ended by a fault");
        click(panel, "CompileAll");
        files.writeWhole("b.prg", "B");
        gate.expectOpenDialog(
            {"Open ZLT-R-NX Program", "ZLT-R-NX Program Files (*.prg)|*.prg", "*.prg"}, "b.prg");
        click(panel, "OpenProg");
        EXPECT_EQ(kept(), "") << "Open drops it";
        box.undo();
        EXPECT_EQ(box.program(), "X1000");
        EXPECT_FALSE(saved(panel));
    });
}

TEST_F(UnsavedTextTest, IsDiscardedByTheOperatorAlone) {
    type("first");
    click(*form, "Close");
    start();
    type("second");
    onPanel(
        [](QWidget&, ProgramEditor& box) {
            EXPECT_EQ(box.program(), "first");
            box.undo();
            EXPECT_EQ(box.program(), "second");
            box.redo();
        },
        "openUnsaved");
    EXPECT_EQ(kept(), "|first|second") << "no text is lost for another";
    for (const bool yes : {false, true}) {
        ASSERT_TRUE(offered());
        gate.expectQuestion("Discard", "Discard the program text that was kept?", yes);
        click(*form, "dropUnsaved");
        EXPECT_EQ(kept(), yes ? "|first" : "|first|second");
    }
    EXPECT_FALSE(offered());
}

TEST_F(UnsavedTextTest, HoldsTheProgramWhereItCannotBeKept) {
    type("X1000");
    std::filesystem::remove_all(services.dataFolder);
    std::ofstream(services.dataFolder) << "no folder";
    for (const bool closes : {false, true}) {
        gate.expectQuestion("Program not saved",
                            "The program text is not saved, and cannot be kept for the next start: "
                            "Not a directory.\r\nClose all the same?",
                            closes);
        click(*form, "Close");
        EXPECT_EQ(programEnd.ended(), closes);
    }
}

}  // namespace
}  // namespace zlt::test
