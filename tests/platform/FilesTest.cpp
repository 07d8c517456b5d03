// The panel's files on a full disk, in a folder that takes none, and what is no file at all.

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <fstream>

#include "programs/forms/ProgramEditor.h"
#include "programs/forms/ProgramFrame.h"
#include "support/PanelWorld.h"
#include "support/SmallDisk.h"

namespace zlt::test {
namespace {

namespace fs = std::filesystem;
using Read = FileContent::Kind;
using Write = WriteFailure::Kind;

/// Nobody in particular while it stands: rights do not bind the administrator.
class AsNobody {
 public:
    AsNobody() { m_became = ::geteuid() == 0 && ::seteuid(65534) == 0; }
    ~AsNobody() { EXPECT_TRUE(!m_became || ::seteuid(0) == 0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

 private:
    bool m_became;
};

class QtFilesTest : public ::testing::Test, public World {
 protected:
    static std::ptrdiff_t filesIn(const fs::path& place) {
        return std::distance(fs::directory_iterator(place), {});
    }
    /// A folder with one file of two pages that anybody may write, and nothing may be added to.
    void makeClosedFolder() {
        std::ofstream("disk/a") << old;
        fs::permissions(fs::current_path(), fs::perms(0755));
        fs::permissions("disk/a", fs::perms(0666));
        fs::permissions("disk", fs::perms(0555));
    }

    const std::string old = std::string(5000, 'o');
    const std::string tooLong = std::string(12'000, 'n');  // yet short enough for a buffer
};

TEST_F(QtFilesTest, AFullDiskIsToldAndLeavesTheFileBefore) {
    const SmallDisk disk("disk");
    ASSERT_FALSE(files.writeWhole("disk/a", "old"));
    const auto failure = files.writeWhole("disk/a", tooLong);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, Write::failed);
    // The second one where the disk is played by a limit on each file.
    EXPECT_TRUE(failure->reason == "No space left on device" || failure->reason == "File too large")
        << failure->reason;
    EXPECT_EQ(files.read("disk/a").whole(), "old");
    EXPECT_EQ(filesIn("disk"), 1) << "nothing is left beside it";
    EXPECT_FALSE(files.writeWhole("disk/a", ""));
    EXPECT_EQ(files.read("disk/a").whole(), "");
}

TEST(ProgramOnAFullDisk, IsNeitherSavedNorCompiled) {
    PanelWorld panel;
    const SmallDisk disk("EXE");
    panel.load();
    control<ProgramEditor>(panel.form, "OrgProgram").setProgram(std::string(12'000, 'X'));
    panel.gate.expectSaveDialog(
        {"Save ZLT-R-NX Program As", "ZLT-R-NX Program Files (*.prg)|*.prg", ""}, "EXE/a.prg");
    panel.gate.expectMessageWith("The text could not be saved in EXE/a.prg: ");
    click(panel.form, "SaveProg");
    EXPECT_EQ(control<ProgramFrame>(panel.form, "ProgramFrame").title(),
              QStringLiteral("Program \u2013 not saved"));
    panel.gate.expectMessageWith("The file Program.prg cannot be written into the folder");
    click(panel.form, "CompileAll");
    EXPECT_TRUE(panel.tools.started.empty()) << "half a program could be compiled";
    EXPECT_TRUE(fs::is_empty("EXE"));
}

TEST_F(QtFilesTest, WriteInPlaceWhereTheFolderTakesNoOther) {
    const SmallDisk disk("disk");
    makeClosedFolder();
    const AsNobody nobody;
    if (::access("disk", W_OK) == 0 && ::geteuid() == 0)
        GTEST_SKIP() << "skipped: the administrator may write everywhere";
    EXPECT_FALSE(files.writeWhole("disk/a", "short"));
    EXPECT_EQ(files.read("disk/a").whole(), "short");
    EXPECT_FALSE(files.writeWhole("disk/a", old));
    EXPECT_EQ(files.read("disk/a").whole(), old);
    const auto full = files.writeWhole("disk/a", tooLong);
    ASSERT_TRUE(full);
    EXPECT_EQ(full->kind, Write::failed);
    EXPECT_EQ(files.read("disk/a").whole(), old) << "as it was before";
    const auto another = files.writeWhole("disk/b", "b");
    ASSERT_TRUE(another);
    EXPECT_EQ(another->kind, Write::noAccess);
    std::error_code notOurs;
    fs::permissions("disk", fs::perms(0755), notOurs);  // or its owner could not remove it
}

TEST_F(QtFilesTest, WhatIsNoFileIsTurnedDownAtOnce) {
    ASSERT_EQ(::mkfifo("pipe", 0666), 0);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const sockaddr_un address{AF_UNIX, "socket"};
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
    std::ofstream("huge") << "x";
    fs::resize_file("huge", longestFile + 1);
    std::ofstream("limit") << "x";
    fs::resize_file("limit", longestFile);
    struct Row {
        const char* name;
        Read kind;
        const char* words;
    };
    const Row table[] = {{"pipe", Read::notAFile, "a named pipe"},
                         {"socket", Read::notAFile, "a socket"},
                         {"/dev/zero", Read::notAFile, "a device"},
                         {".", Read::notAFile, "a folder"},
                         {"huge", Read::tooLarge, "16777217 bytes, and at most 16777216"},
                         {"limit", Read::whole, ""},
                         {"/proc/self/mem", Read::unreadable, ""},
                         {"pipe/a", Read::absent, ""},
                         {"none", Read::absent, ""}};
    for (const auto& [name, kind, words] : table) {
        const FileContent content = files.read(name);
        EXPECT_EQ(content.kind, kind) << name;
        EXPECT_NE(content.reason.find(words), std::string::npos) << content.reason;
        EXPECT_EQ(content.reason.empty(), kind == Read::whole) << name;
        // The machine's own devices are not put at risk.
        if (kind == Read::notAFile && *name != '/') {
            const auto failure = files.writeWhole(name, "x");
            EXPECT_TRUE(failure && failure->reason.find(words) != std::string::npos) << name;
            EXPECT_FALSE(fs::is_regular_file(name)) << name;
        }
    }
}

}  // namespace
}  // namespace zlt::test
