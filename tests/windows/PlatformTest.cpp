// What Windows has of its own, below a folder with blanks and letters beyond Latin-1 in its name.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <fstream>

#include "platform/WindowsText.h"
#include "platform_qt/ThisSystem.h"
#include "support/World.h"

namespace zlt::test {
namespace {

namespace fs = std::filesystem;

TEST(WindowsWaits, TakeAboutTheirTime) {
    const auto waits = makeWaits();
    QElapsedTimer time;
    time.start();
    for (int turn = 0; turn < 200; ++turn)
        waits->sleep(std::chrono::milliseconds(1));
    const double each = static_cast<double>(time.nsecsElapsed()) / 200e6;
    std::printf("a wait of 1 ms takes %.2f ms\n", each);
    EXPECT_GE(each, 0.9);
    EXPECT_LT(each, 3.0) << "not by ticks of 16 ms";
}

TEST(WindowsFiles, AreReplacedWholeUnderAnyName) {
    World world;
    const fs::path name = pathFromUtf8(
        "Pr\xC3\xBC"
        "f stand \xCE\xA9.par");
    for (const char* text : {"the first\r\n", "the next"}) {
        EXPECT_FALSE(world.files.writeWhole(name, text));
        EXPECT_EQ(world.files.read(name).whole(), text);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 1) << "nothing else is left";
}

TEST(WindowsText, HasWordsForAnError) {
    EXPECT_FALSE(windowsErrorText(2).empty());
    EXPECT_FALSE(windowsErrorText(2).ends_with('\n'));
    EXPECT_EQ(windowsErrorText(0x2FFF'FFFF), "Windows error 805306367");
}

TEST(WindowsTools, AreFoundByTheirEndingAndWaitedFor) {
    World world;
    const fs::path exe = fs::current_path() /
                         pathFromUtf8(
                             "Pr\xC3\xBC"
                             "f stand \xCE\xA9") /
                         "EXE";
    fs::create_directories(exe);
    const auto processes = makeProcesses();
    const fs::path tool = processes->fileOf(exe / "SA_Compile_Decompile");
    EXPECT_EQ(tool.filename(), "SA_Compile_Decompile.exe");
    bool started = false;
    const auto run = [&] {
        return processes->runAndWait(tool, [&](std::int64_t process) { started = process > 0; });
    };
    const ProcessEnd missing = run();
    EXPECT_EQ(missing.kind, ProcessEnd::Kind::notStarted);
    EXPECT_NE(missing.reason, "");
    EXPECT_FALSE(started);

    fs::copy_file(ownFolder() / "EXE" / "SA_Compile_Decompile.exe", tool);
    std::ofstream(exe / "sa_compile_decompile_setup.txt")
        << "MOD:ZLT-R-NX-42\nOPE:COMPILE\nFIL:Program.prg\n";
    std::ofstream(exe / "Program.prg") << "END\n";
    EXPECT_EQ(run().kind, ProcessEnd::Kind::exited);
    EXPECT_TRUE(started);
    EXPECT_TRUE(fs::exists(exe / "CompileOut.txt")) << "it was waited for";
}

}  // namespace
}  // namespace zlt::test
