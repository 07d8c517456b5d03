// The editor's rules, which know of no box: colours, search, whole lines, and whose text is whose.

#include <gtest/gtest.h>

#include "platform_qt/QtFiles.h"
#include "programs/DownloadedText.h"
#include "programs/LineEdits.h"
#include "programs/ProgramFile.h"
#include "programs/ProgramLanguage.h"
#include "programs/TextSearch.h"
#include "programs/ToolRunner.h"
#include "support/World.h"

namespace zlt::test {
namespace {

/// One letter a character: comment, number, flow, move, or a blank.
std::string coloursOf(std::u16string_view line) {
    std::string colours(line.size(), ' ');
    for (const Token& token : tokensOfLine(line))
        colours.replace(token.begin, token.length, token.length,
                        "cnfm"[static_cast<std::size_t>(token.kind)]);
    return colours;
}

TEST(ProgramLanguage, ColoursWordsNumbersAndComments) {
    const std::pair<std::u16string_view, const char*> table[] = {
        {u"", ""},
        {u"  X4000 ; X1", "  mnnnn cccc"},
        {u"X-15", "m nn"},
        {u"XV1=X", "     "},
        {u"V1=V1-1.5", "      nnn"},
        {u"WHILE V1>0", "fffff    n"},
        {u"PRG 1", "fff n"},
        {u"PRG1 ENDX end x4", "                "},
        {u"END;\u20AC", "fffcc"},
        {u"H-;HL+", "mmcccc"},
        {u"ZH+ J- H Z=1", "mmm mm     n"},
        {u"HSPD=5000", "     nnnn"},
        {u"DO2=1", "    n"}};
    for (const auto& [line, colours] : table)
        EXPECT_EQ(coloursOf(line), colours) << line.size();
}

TEST(LineEdits, CommentABlockAndTakeItBack) {
    const struct Row {
        TextLines before, after, again;
    } table[] = {
        {{u"  X1", u"", u"    X2"}, {u"  ; X1", u"", u"  ;   X2"}, {u"  X1", u"", u"    X2"}},
        {{u";X1", u" ; X2"}, {u"X1", u" X2"}, {u"; X1", u";  X2"}},
        {{u"; X1", u"X2"}, {u"; ; X1", u"; X2"}, {u"; X1", u"X2"}},
        {{u"", u" "}, {u"", u" "}, {u"", u" "}}};
    for (const Row& row : table) {
        EXPECT_EQ(toggleComment(row.before), row.after);
        EXPECT_EQ(toggleComment(row.after), row.again);
    }
}

TEST(LineEdits, MoveLinesAndFillUpToStops) {
    const TextLines lines{u"X1", u"", u"   X2", u"\tX3"};
    EXPECT_EQ(indent(lines, 2), (TextLines{u"  X1", u"", u"     X2", u"  \tX3"}));
    EXPECT_EQ(outdent(lines, 2), (TextLines{u"X1", u"", u" X2", u"X3"}));
    const std::pair<std::u16string_view, std::size_t> table[] = {
        {u"", 4}, {u"X", 3}, {u"X100", 4}, {u"X\t", 4}, {u"\tX", 3}};
    for (const auto& [before, blanks] : table)
        EXPECT_EQ(blanksToStop(before, 4), blanks) << before.size();
}

TEST(TextSearch, FindsByCaseAndWholeWords) {
    using Places = std::vector<std::size_t>;
    constexpr std::u16string_view text = u"X1 x10\u2029\u00C4x1\u00A0X1";
    const std::pair<SearchRule, Places> table[] = {{{u"x1"}, {0, 3, 8, 11}},
                                                   {{u"x1", true}, {3, 8}},
                                                   {{u"x1", false, true}, {0, 11}},
                                                   {{u"\u00E4X"}, {7}},
                                                   {{u"0\u2029"}, {5}},
                                                   {{u"\u00A0"}, {10}},
                                                   {{u" "}, {2}},
                                                   {{u""}, {}}};
    for (const auto& [rule, places] : table)
        EXPECT_EQ(findAll(text, rule), places) << rule.words.size();
    EXPECT_EQ(findAll(u"aaaa", {u"aa"}), (Places{0, 2})) << "none within another";

    const Places places{3, 8};
    EXPECT_EQ(nextPlace(places, 4), 1U);
    EXPECT_EQ(nextPlace(places, 9), 0U) << "round the end";
    EXPECT_EQ(placeBefore(places, 8), 0U);
    EXPECT_EQ(placeBefore(places, 3), 1U);
    EXPECT_EQ(nextPlace({}, 0), std::nullopt);
    EXPECT_EQ(placeBefore({}, 0), std::nullopt);
}

TEST(DownloadedText, IsKnownOnlyWhereThisPanelHasSeenItCompiledAndSent) {
    DownloadedText known;
    known.downloaded("OK\n00 A\n");
    EXPECT_EQ(known.text(), std::nullopt) << "a listing of an earlier run";
    known.compiled("A\r\nB", "OK\n00 A\n01 B\n");
    known.downloaded("OK\n00 C\n01 D\n");
    EXPECT_EQ(known.text(), std::nullopt) << "another program wrote a listing since";
    known.downloaded("OK\n00 A\n01 B\n");
    EXPECT_EQ(known.text(), "A\r\nB");
    EXPECT_EQ(known.lineOf(0), 1);
    EXPECT_EQ(known.lineOf(1), 2);
    EXPECT_EQ(known.lineOf(2), std::nullopt);
    EXPECT_EQ(known.lineOf(-1), std::nullopt);
    known.compiled("; note\r\nA", "OK\n00 A\n");
    EXPECT_EQ(known.text(), "A\r\nB") << "not sent yet";
    known.downloaded("OK\n00 A\n");
    EXPECT_EQ(known.lineOf(0), std::nullopt) << "listing and text do not stand side by side";
}

TEST(CompileErrors, AreAllLinesThatCanBeGoneTo) {
    EXPECT_EQ(compileErrorLines("FAILED Line\nLine: 3\nx\nLine: none\n Line 12\nLine: 99999\n"),
              (std::vector<int>{3, 12}));
}

class ProgramFileTest : public ::testing::Test, public World {};

TEST_F(ProgramFileTest, TellsWhatAnotherProgramDid) {
    using enum ProgramFile::OnDisk;
    ProgramFile file(files);
    EXPECT_EQ(file.look(), asKnown);
    files.writeWhole("a.prg", "A");
    file.belongsTo("a.prg", "A");
    EXPECT_EQ(file.look(), asKnown);
    files.writeWhole("a.prg", "B");
    EXPECT_EQ(file.look(), changed);
    EXPECT_EQ(file.found(), "B");
    file.takeNote();
    EXPECT_EQ(file.look(), asKnown);
    std::filesystem::remove("a.prg");
    EXPECT_EQ(file.look(), gone);
    file.forget();
    EXPECT_EQ(file.look(), asKnown);
}

}  // namespace
}  // namespace zlt::test
