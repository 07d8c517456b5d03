#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include "platform/Latin1.h"
#include "programs/ProgramEditor.h"
#include "programs/ProgramState.h"
#include "programs/ProgramText.h"

namespace zlt::test {
namespace {

TEST(WriteTextAsLines, IsTheOneRuleWithItsLosses) {
    const std::pair<std::string, std::optional<std::string>> table[] = {
        {"", std::nullopt},
        {"A\r\nB", "A\r\nB\r\n"},
        {"A\nB", "AB\r\n"},
        {"A\r\nB\n", "A\r\n"},
        {"A", "A\r\n"},
        {"\n", ""},
        {"\r", "\r\n\r\n"},
        {"A\r\n\r\n", "A\r\n\r\n"},
        {"A\rB\r", "A\r\nB\r\n\r\n"},
        {"\xE9\t ;", "\xE9\t ;\r\n"},
    };
    for (const auto& [text, file] : table)
        EXPECT_EQ(WriteTextAsLines(text), file) << text;
}

TEST(ProgramEditor, GivesItsTextBackWithCrLf) {
    const std::pair<const char*, const char*> table[] = {{"", ""},
                                                         {"A", "A"},
                                                         {"A\r\nB\r\n", "A\r\nB\r\n"},
                                                         {"A\nB", "A\r\nB"},
                                                         {"\xA0\xE9\x85\t", "\xA0\xE9\x85\t"},
                                                         {"\r\n\r\n", "\r\n\r\n"}};
    for (const auto& [text, program] : table) {
        ProgramEditor editor;
        editor.setProgram(text);
        EXPECT_EQ(editor.program(), program);
    }
}

TEST(ProgramEditor, UndoBringsTheReplacedProgramBack) {
    ProgramEditor editor;
    editor.setProgram("A\r\nB");
    editor.setProgram("");
    EXPECT_EQ(editor.program(), "");
    editor.undo();
    EXPECT_EQ(editor.program(), "A\r\nB");
}

TEST(ProgramEditor, NamesTheLineOfACharacterThatNoFileHolds) {
    ProgramEditor editor;
    editor.setPlainText(QStringLiteral("A\n\u2028X \u2212 1"));
    try {
        editor.program();
        FAIL() << "nothing refused";
    } catch (const NotLatin1& error) {
        EXPECT_NE(std::string(error.what()).find("(U+2212) in line 3"), std::string::npos)
            << error.what();
    }
}

TEST(ProgramEditor, SelectsALineWithTheBreakBeforeIt) {
    ProgramEditor editor;
    editor.setProgram("one\r\ntwo\r\n\r\nfour");
    const auto selected = [&](int line) {
        editor.moveCursor(QTextCursor::Start);
        editor.SelectEditorLine(line);
        const QTextCursor cursor = editor.textCursor();
        return std::pair(cursor.selectionStart(), cursor.selectionEnd());
    };
    EXPECT_EQ(selected(1), std::pair(0, 3));
    EXPECT_EQ(selected(2), std::pair(3, 7));
    EXPECT_EQ(selected(3), std::pair(7, 8));
    EXPECT_EQ(selected(4), std::pair(8, 13));
    for (const int none : {0, -1, 5, 32767, -32768})
        EXPECT_EQ(selected(none), std::pair(0, 0)) << none;
}

TEST(ProgramEditor, KeepsEveryCharacterWhenCutAndPasted) {
    ProgramEditor editor;
    editor.setProgram(
        "A\xA0"
        "B\r\nC");
    editor.selectAll();
    editor.cut();
    EXPECT_EQ(editor.program(), "");
    editor.paste();
    EXPECT_EQ(editor.program(),
              "A\xA0"
              "B\r\nC");
    QGuiApplication::clipboard()->setText(QStringLiteral("1\u20282\r\n3"));
    editor.selectAll();
    editor.paste();
    EXPECT_EQ(editor.program(), "1\r\n2\r\n3");
    EXPECT_EQ(editor.blockCount(), 3) << "the lines shown are the lines compiled";
}

TEST(ProgramEditor, EndsALineWithEveryBreakTyped) {
    ProgramEditor editor;
    QTest::keyClicks(&editor, QStringLiteral("a"));
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&editor, QStringLiteral("b"));
    QTest::keyClick(&editor, Qt::Key_Return);
    EXPECT_EQ(editor.program(), "a\r\nb\r\n");
}

}  // namespace
}  // namespace zlt::test
