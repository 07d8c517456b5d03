// The platform's interfaces as the program has them.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTimer>
#include <filesystem>

#include "platform/ProgramEnd.h"
#include "platform_qt/forms/QtGate.h"
#include "support/World.h"

namespace zlt::test {
namespace {

/// Works the box that comes up next, and closes it whatever happens.
template <class Box>
void onceShown(std::function<void(Box&)> work) {
    QTimer::singleShot(0, qApp, [work] {
        auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        work(*box);
        box->close();
    });
}

TEST(QtGate, ShowsTheTextAsItStandsAndItsButtonOnTheScreen) {
    QtGate gate;
    onceShown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("ZLT-R-NX-42"));
        EXPECT_EQ(box.text(), QStringLiteral("<b>a</b>\nb\nc  d \u2212"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
    });
    gate.message("<b>a</b>\rb\r\nc  d \u2212");
}

TEST(QtGate, ShowsALongTextAtOnceToReadSelectAndCopy) {
    QtGate gate;
    std::string lines;
    for (int line = 0; line < 10'000; ++line)
        lines += "Line " + std::to_string(line) + " \xC2\xB5\n";
    const std::string oneLine = std::string(1'000'000, 'x') + "y";
    for (const std::string& text : {lines, oneLine, std::string(19, '\n')}) {
        onceShown<QMessageBox>([&](QMessageBox& box) {
            EXPECT_LT(box.height(), 600);
            EXPECT_LT(box.width(), 1000);
            EXPECT_EQ(box.text(), QString()) << "a label lays out all of it first";
            auto* view = box.findChild<QPlainTextEdit*>();
            ASSERT_TRUE(view && view->isVisible());
            EXPECT_TRUE(view->isReadOnly());
            for (auto block = view->document()->begin(); block.isValid(); block = block.next())
                ASSERT_LT(block.length(), 5000) << "and a view all of a line";
            view->selectAll();
            view->copy();
            EXPECT_TRUE(QGuiApplication::clipboard()->text().toStdString() == text);
        });
        gate.message(text);
    }
}

TEST(QtGate, TakesOnlyYesForYes) {
    QtGate gate;
    const std::pair<QMessageBox::StandardButton, bool> table[] = {
        {QMessageBox::Yes, true}, {QMessageBox::No, false}, {QMessageBox::NoButton, false}};
    for (const auto& [pressed, answer] : table) {
        onceShown<QMessageBox>([pressed = pressed](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Device ID"));
            EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
            if (auto* button = box.button(pressed))
                button->click();
        });
        EXPECT_EQ(gate.ask("Device ID", "Sure?"), answer);
    }
}

TEST(QtGate, LetsAnyNameOutOfItsDialogs) {
    World world;
    QtGate gate;
    const FileChoice choice{"Open It", "Some Files (*.prg)|*.prg", "*.prg"};
    const auto take = [](const char* name) {
        onceShown<QFileDialog>([name](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open It"));
            EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("Some Files (*.prg)")});
            if (*name)
                dialog.findChild<QLineEdit*>()->setText(QString::fromLatin1(name));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    };
    const auto nameOf = [](const std::optional<std::string>& path) {
        return path ? std::filesystem::path(*path).filename().string() : "cancelled";
    };
    take("");
    EXPECT_EQ(nameOf(gate.chooseToOpen(choice)), "*.prg") << "the initial name";
    take("gone.prg");
    EXPECT_EQ(nameOf(gate.chooseToOpen(choice)), "gone.prg");
    take("new");
    EXPECT_EQ(nameOf(gate.chooseToSave({choice.title, choice.filter, ""})), "new.prg");
    onceShown<QFileDialog>([](QFileDialog&) {});
    EXPECT_EQ(nameOf(gate.chooseToOpen(choice)), "cancelled");
}

TEST(EndingGate, RunsNothingOnOnceTheProgramWasEndedUnderABox) {
    ProgramEnd end;
    std::vector<int> kept;
    end.keepUnsaved = [&] { kept.push_back(end.exitCode()); };
    RecordingGate boxes;
    EndingGate gate(boxes, end);
    const auto ask = [&] { end.askForEnd(143); };
    boxes.expectMessage("first");
    gate.message("first");
    boxes.expectMessage("second", ask);
    EXPECT_THROW(gate.message("second"), ProgramEnd::Unwind);
    boxes.expectQuestion("Title", "Sure?", true);
    EXPECT_THROW(gate.ask("Title", "Sure?"), ProgramEnd::Unwind);
    boxes.expectOpenDialog({"Open", "", ""}, "name");
    EXPECT_THROW(gate.chooseToOpen({"Open", "", ""}), ProgramEnd::Unwind);
    boxes.expectSaveDialog({"Save", "", ""}, "name");
    EXPECT_THROW(gate.chooseToSave({"Save", "", ""}), ProgramEnd::Unwind);
    EXPECT_THROW(end.endProgram(1), ProgramEnd::Unwind);
    EXPECT_EQ(kept, std::vector<int>{143}) << "once, and the first code is the program's";
    EXPECT_EQ(end.exitCode(), 143);
}

}  // namespace
}  // namespace zlt::test
