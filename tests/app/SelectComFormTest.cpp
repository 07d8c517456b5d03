#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "app/SelectComForm.h"
#include "link/Flavour.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {
namespace {

const std::string settingsFile(settingsFileName);

class SelectComFormTest : public ::testing::Test, public World {
 protected:
    SelectComFormTest() { answerAsController(); }
    void show() {
        form.Form_Load();
        form.show();
        QApplication::setActiveWindow(&form);
    }
    void connect(const std::function<void(QWidget& panel)>& work) {
        clickAndWork(form, "Command25", work);
    }
    /// Types as the operator does, and leaves the box with Enter.
    void type(const char* box, const char* utf8) {
        auto& edit = *control<QComboBox>(form, box).lineEdit();
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromUtf8(utf8));
        press(form, box, Qt::Key_Return);
    }
    std::string shown() {
        return textOf(form, "combo") + "|" + textOf(form, "baudCom") + "|" +
               textOf(form, "DeviceIDCombo");
    }
    std::string offered(const char* box) {
        auto& combo = control<QComboBox>(form, box);
        return std::to_string(combo.count()) + " " + combo.itemText(0).toStdString() + " " +
               combo.itemText(combo.count() - 1).toStdString();
    }
    std::string saved() { return files.read(settingsFileName).whole().value_or("none"); }

    std::string adapter = "A";  ///< its serial number
    SelectComForm form{services, directory};
};

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
    for (const std::string& text : {binary, std::string(1 << 20, 'x')}) {
        std::ofstream(settingsFile, std::ios::binary) << text;
        SelectComForm start(services, directory);
        start.Form_Load();
        start.show();
        start.grab();
        EXPECT_TRUE(saved() == text) << "looking writes nothing";
    }
    std::filesystem::remove(settingsFile);
    show();
    EXPECT_EQ(shown(), "COM1|9600|01");
    EXPECT_EQ(saved(), "none");
}

TEST_F(SelectComFormTest, SavesAndHandsOverOnConnect) {
    std::ofstream(settingsFile, std::ios::binary) << "COM4\r\n38400\r\n02\r\n";
    show();
    EXPECT_EQ(shown(), "COM4|38400|02");
    EXPECT_EQ(offered("combo"), "15 COM1 COM15");
    EXPECT_EQ(offered("baudCom"), "5 9600 115200");
    EXPECT_EQ(offered("DeviceIDCombo"), "99 01 99");
    type("combo", "COM12");
    type("DeviceIDCombo", "07");
    bus.replies["DN"] = "nobody";
    gate.expectMessage("No Communication with device!");
    gate.expectMessage(std::string(portNotAvailable));
    connect([](QWidget& panel) { panel.close(); });
    bus.replies["DN"] = "ZLD01";
    for (int run = 0; run < 2; ++run)
        connect([this](QWidget& panel) {
            EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Communication OK");
            EXPECT_EQ(bus.portsOpen, 1);
            click(panel, "Command2");
        });
    EXPECT_EQ(bus.openings, std::vector<std::string>(3, "12 38400"));
    EXPECT_EQ(bus.requests[0], "@07DN");
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_EQ(saved(), "COM12\r\n38400\r\n07\r\n");
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(SelectComFormTest, SavesAndEndsOnCloseByEitherWay) {
    show();
    type("baudCom", "96");
    EXPECT_EQ(offered("baudCom"), "5 9600 115200") << "what was typed is not one more";
    form.close();
    EXPECT_EQ(saved(), "COM1\r\n96\r\n01\r\n");
    EXPECT_TRUE(programEnd.ended());
    EXPECT_EQ(programEnd.exitCode(), 0);
}

TEST_F(SelectComFormTest, RefusesACharacterThatTheWireLacks) {
    show();
    control<QComboBox>(form, "DeviceIDCombo").setEditText(QStringLiteral("\u22125"));
    gate.expectMessageWith("\"\u2212\" (U+2212)");
    click(form, "Command25");
    EXPECT_TRUE(bus.openings.empty());
    gate.expectMessageWith("U+2212");
    form.close();
    EXPECT_TRUE(programEnd.ended()) << "it can always be closed";
    EXPECT_EQ(saved(), "none");
}

TEST_F(SelectComFormTest, GoesOnWhenTheSettingsCannotBeSaved) {
    std::filesystem::create_directory(settingsFile);
    show();
    EXPECT_EQ(shown(), "COM1|9600|01");
    connect([](QWidget& panel) { click(panel, "Command2"); });
    EXPECT_EQ(bus.openings.size(), 1U);
    EXPECT_TRUE(control<QWidget>(form, "settingsNote").isVisible());
    EXPECT_NE(textOf(form, "settingsNote").find("could not be saved"), std::string::npos);
    click(form, "Close");
    EXPECT_TRUE(programEnd.ended());
}

TEST_F(SelectComFormTest, TakesNoOrdersFromKeysAndWheel) {
    show();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        for (const char* name : {"baudCom", "DeviceIDCombo", "combo"})
            press(form, name, key);
    auto& box = control<QComboBox>(form, "baudCom");
    turnWheel(box);
    EXPECT_EQ(shown(), "COM1|9600|01");
    box.setFocus();
    turnWheel(box);
    EXPECT_EQ(shown(), "COM1|19200|01") << "a box that was chosen first turns";
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(bus.openings.empty());
    EXPECT_FALSE(programEnd.ended());
}

TEST_F(SelectComFormTest, SaysWhatStandsBehindThePort) {
    std::ofstream("zlt-r-485.ports") << "COM2=/dev/no-such-port\n";
    show();
    auto& problem = control<QWidget>(form, "portProblem");
    ASSERT_TRUE(QTest::qWaitFor([&] { return problem.isVisible(); }));
    EXPECT_NE(textOf(form, "portProblem").find("not in the port list"), std::string::npos);
    choose(form, "combo", "COM2");
    EXPECT_EQ(textOf(form, "portDevice"), "COM2 is /dev/no-such-port");
    EXPECT_NE(textOf(form, "portProblem").find("no such device"), std::string::npos);
    EXPECT_FALSE(control<QWidget>(form, "portRemarks").isVisible());
    std::ofstream("zlt-r-485.ports", std::ios::app) << "COM 3\n";
    tick(form, "portTimer");
    EXPECT_NE(textOf(form, "portRemarks").find("Line 2 of the port list"), std::string::npos);
}

TEST_F(SelectComFormTest, SaysWhatAFailedIdentificationToldOfTheLine) {
    show();
    for (const auto& [reply, words] : {std::pair("@01D", ""), {"@01DN", "The adapter echoes"}}) {
        bus.replies["DN"] = reply;
        gate.expectMessage("No Communication with device!");
        gate.expectMessage(std::string(portNotAvailable));
        connect([](QWidget& panel) { click(panel, "Command2"); });
        EXPECT_EQ(textOf(form, "portRemarks").substr(0, std::strlen(words)), words);
        EXPECT_EQ(textOf(form, "portRemarks").empty(), *words == '\0');
    }
    choose(form, "DeviceIDCombo", "02");
    EXPECT_EQ(textOf(form, "portRemarks"), "") << "it was said of other settings";
}

TEST_F(SelectComFormTest, SaysWhenAnotherAdapterHasThePort) {
    PortDirectory bench{
        portListFileName, [&] {
            return std::vector<SerialDevice>{{"/dev/null", "Acme", true, "1:1", adapter, ""}};
        }};
    SelectComForm start(services, bench);
    start.Form_Load();
    start.show();
    bench.refresh();
    clickAndWork(start, "Command25", [](QWidget& panel) { click(panel, "Command2"); });
    EXPECT_EQ(textOf(start, "portRemarks"), "");
    adapter = "B";
    bench.refresh();
    tick(start, "portTimer");
    EXPECT_EQ(textOf(start, "portRemarks"),
              "COM1 was another one last time: Acme, serial number A.");
    clickAndWork(start, "Command25", [](QWidget& panel) { click(panel, "Command2"); });
    EXPECT_EQ(textOf(start, "portRemarks"), "");
}

}  // namespace
}  // namespace zlt::test
