// The built program: its end by signals, pipes and pulled cables, the locks, and what it links.

#include <signal.h>

#include "ctl/ZltctlProcess.h"

namespace zlt::test {
namespace {

TEST_F(ZltctlProcess, LinksNoWidgets) {
    QProcess ldd;
    ldd.start(QStringLiteral("ldd"), {QStringLiteral(ZLT_CTL_PATH)});
    if (!ldd.waitForFinished())
        GTEST_SKIP() << "skipped: there is no ldd here";
    const QByteArray libraries = ldd.readAllStandardOutput();
    EXPECT_TRUE(libraries.contains("libQt6Core")) << libraries.toStdString();
    for (const char* library : {"Widgets", "Gui", "X11", "wayland"})
        EXPECT_FALSE(libraries.contains(library)) << library;
}

TEST_F(ZltctlProcess, EndsInOrderOnSignals) {
    struct Row {
        const char* line;
        bool printsFirst;  ///< a line is waited for before the signal
        int signal;
    };
    for (const Row& row : {Row{"watch --every 1", true, SIGINT},
                           {"watch --every 100000", true, SIGINT},
                           {"watch --every 1", true, SIGTERM},
                           {"search --all", true, SIGHUP},
                           {"send -", false, SIGINT},
                           {"terminal", false, SIGTERM},
                           {"jog + --speed 10 --wait", false, SIGINT}}) {
        QProcess process;
        start(process, row.line);
        if (row.printsFirst)
            nextLine(process);
        else
            process.waitForFinished(300);  // until it has come to its waiting
        const auto id = static_cast<pid_t>(process.processId());
        ASSERT_GT(id, 0) << row.line << " has ended by itself";  // 0 would be this test as well
        kill(id, row.signal);
        EXPECT_EQ(codeOf(process), 128 + row.signal) << row.line;
        EXPECT_EQ(run("status position"), 0) << row.line << ": the port is free again";
    }
    EXPECT_EQ(run("status motion"), 0);
    EXPECT_EQ(results, "MOVING\n") << "a signal stops no axis";
}

TEST_F(ZltctlProcess, EndsQuietlyWhenNobodyReadsOn) {
    QProcess shell;
    start(shell, QStringLiteral("bash"),
          {QStringLiteral("-c"),
           QStringLiteral("set -o pipefail; zltctl watch --csv --every 1 | head -3")});
    EXPECT_EQ(codeOf(shell), 0);
    EXPECT_EQ(shell.readAllStandardOutput().count('\n'), 3);
    EXPECT_EQ(shell.readAllStandardError().toStdString(), "");
    EXPECT_EQ(run("status"), 0);
}

TEST_F(ZltctlProcess, SaysThatResultsCannotBeWritten) {
    QProcess shell;
    start(shell, QStringLiteral("bash"),
          {QStringLiteral("-c"), QStringLiteral("zltctl status > /dev/full")});
    EXPECT_EQ(codeOf(shell), 1);
    EXPECT_TRUE(shell.readAllStandardError().startsWith("zltctl: The results cannot be written"));
}

TEST_F(ZltctlProcess, NamesWhoHasThePort) {
    QProcess holder;
    start(holder, "watch --every 10");
    nextLine(holder);
    EXPECT_EQ(run("status"), 4);
    EXPECT_NE(errors.find("In use by zltctl (process " + std::to_string(holder.processId()) + ")"),
              std::string::npos)
        << errors;
    nextLine(holder);  // it goes on undisturbed
    holder.terminate();
    EXPECT_EQ(codeOf(holder), 143);
}

TEST_F(ZltctlProcess, TellsAPulledCableAndASilentController) {
    QProcess watch;
    start(watch, "watch --every 1");
    nextLine(watch);
    bus.say("hangup");
    EXPECT_EQ(codeOf(watch), 4);
    EXPECT_TRUE(watch.readAllStandardError().contains("zltctl: The port COM1 is lost."));
    EXPECT_EQ(run("status"), 4);
    bus.say("plug");
    listPort();
    bus.say("silent");
    EXPECT_EQ(run("abort"), 3);
    EXPECT_NE(errors.find("ABORT went out"), std::string::npos) << errors;
    bus.say("speak");
    EXPECT_EQ(run("status"), 0) << errors;
}

TEST_F(ZltctlProcess, SearchesAndMoves) {
    EXPECT_EQ(run("search"), 0);
    EXPECT_EQ(results, "COM1 9600 01\n");
    const std::string there = "search --port " + bus.device();
    EXPECT_EQ(run(there.c_str()), 0);
    EXPECT_EQ(results, bus.device() + " 9600 01\n");
    EXPECT_EQ(run("move 1500 --speed 20000 --accel 50 --wait"), 0) << errors;
    EXPECT_EQ(run("status position motion"), 0);
    EXPECT_EQ(results, "1500\nIDLE\n");
    EXPECT_EQ(run("jog + --speed 90000 --wait"), 1) << "the limit";
}

TEST_F(ZltctlProcess, TakesProgramsThereAndBack) {
    const std::string text = "HSPD=1000\r\nX500\r\nEND\r\n";
    std::ofstream(path("cycle.prg"), std::ios::binary) << text;
    EXPECT_EQ(run("program compile cycle.prg"), 0) << errors;
    EXPECT_EQ(results, "3\n");
    EXPECT_EQ(run("-q program download cycle.prg"), 0) << errors;
    EXPECT_EQ(errors, "");
    EXPECT_EQ(run("program upload back.prg"), 0) << errors;
    std::ifstream back(path("back.prg"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(back), {}), text);
    EXPECT_EQ(run("program upload back.prg"), 1) << "it is there already";
    EXPECT_EQ(run("program compile none.prg"), 1);
    EXPECT_EQ(run("program clear"), 0) << errors;
    EXPECT_EQ(run("program upload"), 0) << errors;
    EXPECT_EQ(results, "");
    std::ofstream(path("zlt-r-485.ports")) << "COM2=/dev/null\n";
    const std::string unnumbered = "program clear --port " + bus.device();
    EXPECT_EQ(run(unnumbered.c_str()), 4);
}

TEST_F(ZltctlProcess, TalksByHand) {
    QProcess terminal;
    start(terminal, "terminal");
    terminal.write("PX\n@x\n@02\nPX\n");
    EXPECT_EQ(codeOf(terminal), 0);
    EXPECT_EQ(terminal.readAllStandardOutput().toStdString(), ">@01PX\n<0\n>@02PX\n<NO REPLY!\n");
}

}  // namespace
}  // namespace zlt::test
