#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include "programs/ProgramText.h"
#include "programs/forms/ProgramEditor.h"

namespace zlt::test {
namespace {

TEST(WriteTextAsLines, IsTheOneRuleWithItsLosses) {
    const std::pair<std::string, std::optional<std::string>> table[] = {
        {"", std::nullopt},
        {"A\r\nB", "A\r\nB\r\n"},
        {"A\nB", "AB\r\n"},
        {"A\r\nB\n", "A\r\n"},
        {"\xE9\t ;\rB\r\n\r\n", "\xE9\t ;\r\nB\r\n\r\n"},
    };
    for (const auto& [text, file] : table)
        EXPECT_EQ(WriteTextAsLines(text), file) << text;
}

TEST(ProgramEditor, KeepsCharactersAndLinesHoweverTheyComeIn) {
    ProgramEditor editor;
    const std::string text = "\xA0\xE9\x85\t\r\n\r\nC";
    editor.setProgram(text);
    editor.selectAll();
    editor.cut();
    EXPECT_EQ(editor.program(), "");
    editor.paste();
    EXPECT_EQ(editor.program(), text);

    QGuiApplication::clipboard()->setText(QStringLiteral("1\u20282\r\n3"));
    editor.selectAll();
    editor.paste();
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&editor, QStringLiteral("4"));
    EXPECT_EQ(editor.program(), "1\r\n2\r\n3\r\n4");
    EXPECT_EQ(editor.blockCount(), 4) << "the lines shown are the lines compiled";
}

}  // namespace
}  // namespace zlt::test
