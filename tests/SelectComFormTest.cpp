#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "app/SelectComForm.h"
#include "link/Flavour.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {
namespace {

class SelectComFormTest : public ::testing::Test, public World {
 protected:
    void show() {
        form.Form_Load();
        form.show();
    }
    void type(const char* box, const QString& text) {
        auto& edit = *control<QComboBox>(form, box).lineEdit();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
    std::string shown() {
        return textOf(form, "combo") + "|" + textOf(form, "baudCom") + "|" +
               textOf(form, "DeviceIDCombo");
    }
    std::string settingsFile() { return files.read(settingsFileName, 1000).value_or("none"); }
    /// Connects, and works the panel while it is shown.
    void connect(const std::function<void(QWidget& panel)>& work) {
        QTimer::singleShot(0, &form, [&] {
            QWidget* panel = QApplication::activeModalWidget();
            if (!panel) {
                ADD_FAILURE() << "no panel is shown";
                return;
            }
            try {
                work(*panel);
            } catch (const std::exception& error) {
                ADD_FAILURE() << error.what();
                panel->close();
            }
        });
        click(form, "Command25");
    }

    SelectComForm form{services, directory};
};

TEST_F(SelectComFormTest, OffersPortsRatesAndDevices) {
    show();
    EXPECT_EQ(shown(), "COM1|9600|01");
    const auto items = [this](const char* box) {
        auto& combo = control<QComboBox>(form, box);
        return std::to_string(combo.count()) + " " + combo.itemText(0).toStdString() + " " +
               combo.itemText(combo.count() - 1).toStdString();
    };
    EXPECT_EQ(items("combo"), "15 COM1 COM15");
    EXPECT_EQ(items("baudCom"), "5 9600 115200");
    EXPECT_EQ(items("DeviceIDCombo"), "99 01 99");
    EXPECT_EQ(settingsFile(), "none") << "looking writes nothing";
}

TEST_F(SelectComFormTest, LooksForPortsOnceItIsPainted) {
    std::ofstream("zlt-r-485.ports") << "COM1=/dev/null\n";
    form.setAttribute(Qt::WA_DontShowOnScreen);  // so that nothing paints it yet
    show();
    QCoreApplication::processEvents();
    EXPECT_FALSE(directory.fromList());
    form.grab();
    QCoreApplication::processEvents();
    EXPECT_TRUE(directory.fromList());
}

TEST_F(SelectComFormTest, SurvivesAnySettingsFile) {
    std::string binary;
    for (int byte = 0; byte < 256; ++byte)
        binary += static_cast<char>(byte);
    for (const std::string& text : {std::string(), binary, std::string(1 << 20, 'x'),
                                    std::string("COM\0\0\r\n\n\0\r\n", 11)}) {
        std::ofstream("zlt-r-485.ini", std::ios::binary) << text;
        SelectComForm start(services, directory);
        start.Form_Load();
        start.show();
        start.grab();
    }
    std::filesystem::remove("zlt-r-485.ini");
    std::filesystem::create_directory("zlt-r-485.ini");
    show();
    EXPECT_EQ(shown(), "COM1|9600|01");
}

TEST_F(SelectComFormTest, SavesAndHandsOverOnConnect) {
    std::ofstream("zlt-r-485.ini") << "COM4\r\n38400\r\n02\r\n";
    answerAsController();
    show();
    EXPECT_EQ(shown(), "COM4|38400|02");
    type("combo", QStringLiteral("COM12"));
    type("DeviceIDCombo", QStringLiteral("07"));
    for (int run = 0; run < 3; ++run)
        connect([this](QWidget& panel) {
            EXPECT_EQ(bus.portsOpen, 1);
            click(panel, "Command2");
        });
    EXPECT_EQ(bus.openings, std::vector<std::string>(3, "12 38400,N,8,1"));
    EXPECT_EQ(bus.requests[0], "@07DN");
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_EQ(settingsFile(), "COM12\r\n38400\r\n07\r\n");
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(SelectComFormTest, ConnectsAgainAfterAFailedLoad) {
    answerAsController();
    show();
    bus.opens = false;
    gate.expectMessage(std::string(portNotAvailable));
    connect([](QWidget& panel) { click(panel, "Command2"); });
    bus.opens = true;
    bus.replies["DN"] = "nobody";
    gate.expectMessage("No Communication with device!");
    gate.expectMessage(std::string(portNotAvailable));
    connect([](QWidget& panel) { panel.close(); });
    EXPECT_EQ(bus.portsOpen, 0);
    bus.replies["DN"] = "ZLD01";
    connect([](QWidget& panel) {
        EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Communication OK");
        click(panel, "Command2");
    });
}

TEST_F(SelectComFormTest, EndsFromWithinThePanelWithTheFailuresCode) {
    answerAsController();
    show();
    gate.expectMessageWith("Communication Error!");
    gate.expectMessage(std::string(portNotAvailable));
    connect([this](QWidget& panel) {
        bus.losesAtWriteOf = "CUR";
        tick(panel, "Timer1");
    });
    EXPECT_EQ(programEnd.exitCode(), 1);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(bus.portsOpen, 0);
}

TEST_F(SelectComFormTest, SavesAndEndsOnCloseByEitherWay) {
    show();
    type("baudCom", QStringLiteral("123"));
    form.close();
    EXPECT_EQ(settingsFile(), "COM1\r\n123\r\n01\r\n");
    EXPECT_TRUE(programEnd.ended());
    EXPECT_EQ(programEnd.exitCode(), 0);

    World second;
    SelectComForm other(second.services, second.directory);
    other.Form_Load();
    other.show();
    click(other, "Close");
    EXPECT_TRUE(second.programEnd.ended());
}

TEST_F(SelectComFormTest, RefusesACharacterThatTheWireLacks) {
    show();
    control<QComboBox>(form, "DeviceIDCombo").setEditText(QStringLiteral("\u22125"));
    gate.expectMessageWith("\"\u2212\" (U+2212)");
    click(form, "Command25");
    EXPECT_TRUE(bus.openings.empty());
    EXPECT_EQ(settingsFile(), "none");
    gate.expectMessageWith("U+2212");
    form.close();
    EXPECT_TRUE(programEnd.ended()) << "it can always be closed";
    EXPECT_EQ(settingsFile(), "none");
}

TEST_F(SelectComFormTest, GoesOnWhenTheSettingsCannotBeSaved) {
    std::filesystem::create_directory("zlt-r-485.ini");
    answerAsController();
    show();
    connect([](QWidget& panel) { click(panel, "Command2"); });
    EXPECT_EQ(bus.openings.size(), 1U);
    EXPECT_TRUE(control<QWidget>(form, "settingsNote").isVisible());
    EXPECT_NE(textOf(form, "settingsNote").find("could not be saved"), std::string::npos);
    click(form, "Close");
    EXPECT_TRUE(programEnd.ended());
}

TEST_F(SelectComFormTest, TakesNoOrdersFromEnterAndEscape) {
    show();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        for (const char* name : {"combo", "baudCom", "DeviceIDCombo"})
            press(form, name, key);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(bus.openings.empty());
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(SelectComFormTest, SaysWhatStandsBehindThePort) {
    std::ofstream("zlt-r-485.ports") << "COM2=/dev/no-such-port\n";
    show();
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return control<QWidget>(form, "portProblem").isVisible(); }));
    EXPECT_NE(textOf(form, "portProblem").find("not in the port list"), std::string::npos);
    choose(form, "combo", "COM2");
    EXPECT_EQ(textOf(form, "portDevice"), "COM2 is /dev/no-such-port");
    EXPECT_NE(textOf(form, "portProblem").find("no such device"), std::string::npos);
}

}  // namespace
}  // namespace zlt::test
