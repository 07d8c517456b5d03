#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "app/SelectComForm.h"
#include "support/FormDriver.h"
#include "support/World.h"
#include "widgets/ChoiceBox.h"
#include "widgets/ReadOut.h"

namespace zlt::test {
namespace {

TEST(EditableChoiceBox, KeepsWhatWasTyped) {
    for (const char* text : {"15", "com1", "COM", ""}) {
        EditableChoiceBox box;
        box.addItems({QStringLiteral("1500"), QStringLiteral("COM1"), QStringLiteral("COM10")});
        box.show();
        box.lineEdit()->selectAll();
        QTest::keyClick(box.lineEdit(), Qt::Key_Delete);
        QTest::keyClicks(box.lineEdit(), QString::fromLatin1(text));
        QTest::keyClick(box.lineEdit(), Qt::Key_Return);
        EXPECT_EQ(box.currentText().toStdString(), text);
        EXPECT_EQ(box.count(), 3);
    }
}

TEST(Screen, LeavesTheWheelToABoxThatWasChosen) {
    World world;
    SelectComForm form(world.services, world.directory);
    form.Form_Load();
    form.show();
    auto& box = control<QComboBox>(form, "baudCom");
    control<QWidget>(form, "combo").setFocus();
    turnWheel(box);
    EXPECT_EQ(box.currentText(), QStringLiteral("9600"));
    QApplication::setActiveWindow(&form);
    box.setFocus();
    turnWheel(box);
    EXPECT_EQ(box.currentText(), QStringLiteral("19200"));
}

TEST(ReadOut, LeavesASelectionAloneWhileTheValueStays) {
    ReadOut value;
    value.showReply("1234");
    value.setSelection(1, 2);
    value.showReply("1234");
    EXPECT_EQ(value.selectedText(), QStringLiteral("23"));
    value.showReply("\xE9#<b>");
    EXPECT_EQ(value.text(), QStringLiteral("\u00E9#<b>"));
}

}  // namespace
}  // namespace zlt::test
