// Other programs, started where a script is one.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform_qt/PosixSystem.h"
#include "support/World.h"

namespace zlt::test {
namespace {

TEST(QtProcesses, StartsAToolByItsPathAloneAndTellsHowItEnded) {
    World world;
    QtProcesses processes;
    using Kind = ProcessEnd::Kind;
    const std::string kept(64 * 1024 - 4, 'x');
    struct Row {
        const char *name, *script;
        Kind kind;
        std::string printed;
    };
    const Row table[] = {
        {"a tool; $(x) 'y'", "#!/bin/sh\necho $# > result; pwd >> result; echo $$; exit 7",
         Kind::exited, "itself"},
        {"crash", "#!/bin/sh\necho no >&2; echo more; kill -SEGV $$", Kind::crashed, "no\nmore\n"},
        {"mute", "#!/bin/sh\nexec >&- 2>&-\nsleep 0.05; kill -KILL $$", Kind::crashed, ""},
        {"talker", "#!/bin/sh\nhead -c 1048576 /dev/zero | tr '\\0' x; echo end >&2", Kind::exited,
         kept + "end\n"},
        {"no program", "\177ELF", Kind::notStarted, ""}};
    const auto folder = std::filesystem::current_path();
    for (const auto& [name, script, kind, printed] : table) {
        std::ofstream(name) << script;
        std::filesystem::permissions(name, std::filesystem::perms::owner_all);
        std::string process = "none";
        const ProcessEnd end = processes.runAndWait(
            folder / name, [&](std::int64_t number) { process = std::to_string(number) + "\n"; });
        EXPECT_EQ(end.kind, kind) << name;
        EXPECT_EQ(process == "none", kind == Kind::notStarted) << name;
        EXPECT_TRUE(end.printed == (printed == "itself" ? process : printed)) << name;
    }
    EXPECT_EQ(processes.runAndWait("/no/such/tool", {}).kind, Kind::notStarted);
    EXPECT_EQ(world.files.read("result").whole(), "0\n" + folder.string() + "\n");
}

}  // namespace
}  // namespace zlt::test
