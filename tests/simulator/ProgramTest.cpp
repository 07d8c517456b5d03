#include <gtest/gtest.h>

#include <string>

#include "simulator/Program.h"

namespace zlt::sim {
namespace {

using namespace std::chrono_literals;

void fill(Program& program, const std::vector<std::string>& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        ASSERT_TRUE(program.store().write(i, lines[i]));
    }
}

TEST(Program, runsPausesContinuesAndStops) {
    Program program;
    fill(program, {"a", "b", "c"});
    EXPECT_FALSE(program.commandAll(3, 0ms)) << "nothing to continue";
    ASSERT_TRUE(program.commandAll(1, 0ms));
    program.advance(45ms);
    EXPECT_EQ(program.thread(0).line(), 2U);
    EXPECT_EQ(program.thread(1).state(), ThreadState::Idle) << "it has no lines";
    ASSERT_TRUE(program.commandAll(2, 45ms));
    program.advance(10s);
    EXPECT_EQ(program.thread(0).line(), 2U);
    EXPECT_EQ(program.thread(0).state(), ThreadState::Paused);
    ASSERT_TRUE(program.commandAll(3, 10s));
    program.advance(10s + 20ms);
    EXPECT_EQ(program.thread(0).line(), 0U) << "from the top again";
    ASSERT_TRUE(program.commandAll(0, 10s + 20ms));
    EXPECT_EQ(program.thread(0).state(), ThreadState::Idle);
}

TEST(Program, threadsHaveTheirOwnPartsAndEnds) {
    Program program;
    fill(program, {"a", " END", "PRG 1", "b"});
    ASSERT_TRUE(program.commandAll(1, 0ms));
    program.advance(30ms);
    EXPECT_EQ(program.thread(1).line(), 3U);
    program.advance(24h);
    EXPECT_EQ(program.thread(0).state(), ThreadState::Idle);
    EXPECT_EQ(program.thread(0).line(), 1U);
    EXPECT_EQ(program.thread(1).state(), ThreadState::Running);
}

TEST(Program, withoutLinesItIsInErrorUntilMended) {
    Program program;
    program.commandAll(1, 0ms);
    program.command(1, 1, 0ms);
    EXPECT_EQ(program.thread(0).state(), ThreadState::Errored);
    EXPECT_EQ(program.thread(1).state(), ThreadState::Errored);
    program.command(0, 0, 0ms);
    program.clearErrors();
    EXPECT_EQ(program.thread(0).state(), ThreadState::Idle);
    EXPECT_EQ(program.thread(1).state(), ThreadState::Idle);
}

TEST(Program, theMemoryHasAnEnd) {
    ProgramStore store;
    for (std::size_t i = 0; i < ProgramStore::kMaximumLines; ++i) {
        ASSERT_TRUE(store.write(i, "x"));
    }
    EXPECT_FALSE(store.write(ProgramStore::kMaximumLines, "x"));
    EXPECT_FALSE(store.write(0, std::string(ProgramStore::kMaximumLineLength + 1, 'x')));
    EXPECT_EQ(store.lines().front(), "x");
}

}  // namespace
}  // namespace zlt::sim
