// The platform's interfaces as the program has them.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "platform_qt/QtGate.h"
#include "platform_qt/QtProcesses.h"
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

TEST(QtGate, ShowsTheTextAsItStands) {
    QtGate gate;
    onceShown<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("ZLT-R-NX-42"));
        EXPECT_EQ(box.text(), QStringLiteral("<b>a</b>\nb\nc  d \u2212"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
    });
    gate.message("<b>a</b>\rb\r\nc  d \xE2\x88\x92");
}

TEST(QtGate, KeepsTheButtonsOfALongMessageOnTheScreen) {
    QtGate gate;
    std::string lines;
    for (int line = 1; line <= 200; ++line)
        lines += "Line: " + std::to_string(line) + "\r\n";
    for (const std::string& text : {lines, std::string(5000, 'x') + " " + std::string(5000, 'y')}) {
        onceShown<QMessageBox>([&](QMessageBox& box) {
            EXPECT_LT(box.height(), 600);
            EXPECT_LT(box.width(), 1000);
            EXPECT_GT(box.text().size(), 1500) << "one box, the whole text";
        });
        gate.message(text);
    }
}

TEST(QtGate, TakesOnlyYesForYes) {
    QtGate gate;
    const auto answer = [&](QMessageBox::StandardButton pressed) {
        QTimer::singleShot(0, qApp, [=] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            EXPECT_EQ(box->windowTitle(), QStringLiteral("Device ID"));
            EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
            box->button(pressed)->click();
        });
        return gate.ask("Device ID", "Sure?");
    };
    EXPECT_TRUE(answer(QMessageBox::Yes));
    EXPECT_FALSE(answer(QMessageBox::No));
    onceShown<QMessageBox>([](QMessageBox&) {});
    EXPECT_FALSE(gate.ask("Device ID", "Sure?")) << "closed by its frame";
}

TEST(QtGate, LetsAnyNameOutOfItsDialogs) {
    World world;
    QtGate gate;
    const FileChoice choice{"Open It", "Some Files (*.prg)|*.prg", "*.prg"};
    const auto choose = [](const char* name) {
        QTimer::singleShot(0, qApp, [name] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_TRUE(edit);
            if (name)
                edit->setText(QString::fromLatin1(name));
            QMetaObject::invokeMethod(dialog, "accept");
            if (dialog->isVisible())
                dialog->reject();
        });
    };
    const auto nameOf = [](const std::optional<std::string>& path) {
        return path ? std::filesystem::path(*path).filename().string() : "cancelled";
    };
    choose(nullptr);
    EXPECT_EQ(nameOf(gate.chooseToOpen(choice)), "*.prg") << "the initial name";
    choose("gone.prg");
    EXPECT_EQ(nameOf(gate.chooseToOpen(choice)), "gone.prg");
    choose("new");
    EXPECT_EQ(nameOf(gate.chooseToSave({"Save It", choice.filter, ""})), "new.prg");
    onceShown<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open It"));
        EXPECT_EQ(dialog.nameFilters(), QStringList{QStringLiteral("Some Files (*.prg)")});
    });
    EXPECT_EQ(gate.chooseToOpen(choice), std::nullopt);
}

TEST(QtProcesses, StartsAToolByItsPathAloneAndTellsHowItEnded) {
    World world;
    QtProcesses processes;
    const auto run = [&](const std::string& name, const std::string& script) {
        std::ofstream(name) << script;
        std::filesystem::permissions(name, std::filesystem::perms::owner_all);
        return processes.runAndWait(std::filesystem::current_path() / name).kind;
    };
    const std::string shell = "#!/bin/sh\n";
    EXPECT_EQ(run("a tool; $(x) 'y'", shell + "echo $# > result; pwd >> result; exit 7"),
              ProcessEnd::Kind::exited);
    EXPECT_EQ(world.files.read("result", 1000),
              "0\n" + std::filesystem::current_path().string() + "\n");
    EXPECT_EQ(run("crash", shell + "kill -SEGV $$"), ProcessEnd::Kind::crashed);
    EXPECT_EQ(processes.runAndWait("/no/such/tool").kind, ProcessEnd::Kind::notStarted);
    EXPECT_EQ(run("no program",
                  "\x7F"
                  "ELF"),
              ProcessEnd::Kind::notStarted);
}

}  // namespace
}  // namespace zlt::test
