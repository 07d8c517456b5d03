#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "support/FormDriver.h"
#include "support/World.h"
#include "terminal/CommandLine.h"
#include "terminal/VariableForm.h"

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

class VariableFormTest : public ::testing::Test, public World {
 protected:
    VariableFormTest() {
        for (int index = 0; index < 32; ++index)
            bus.replies["V" + std::to_string(index)] = std::to_string(1000 + index);
    }
    void open() {
        form.Form_Load();
        form.show();
        QApplication::setActiveWindow(&form);
    }
    std::string box(int index) { return textOf(form, ("V" + std::to_string(index)).c_str()); }
    static void expectZeros(QWidget& monitor) {
        for (int index = 0; index < 32; ++index)
            EXPECT_EQ(textOf(monitor, ("V" + std::to_string(index)).c_str()), "0") << index;
    }
    void enter(const char* command) {
        control<CommandLine>(form, "SendText").setText(QString::fromLatin1(command));
        press(form, "SendText", Qt::Key_Return);
    }
    bool refreshes() { return control<QTimer>(form, "Timer1").isActive(); }

    LinkHandOver handedOver{true, true, {{3}, "9600", "07"}, {}};
    VariableForm form{services, handedOver, nullptr};
};

TEST_F(VariableFormTest, ReadsAllVariablesInOrder) {
    bus.replies["V31"] = "#07-2147483648";
    open();
    EXPECT_EQ(bus.openings, std::vector<std::string>{"3 9600,N,8,1"});
    EXPECT_EQ(textOf(form, "DeviceID"), "07");
    control<QLineEdit>(form, "DeviceID").setText(QStringLiteral("9"));
    tick(form, "Timer1");
    ASSERT_EQ(bus.requests.size(), 32U);
    for (int index = 0; index < 32; ++index)
        EXPECT_EQ(bus.requests[static_cast<std::size_t>(index)], "@07V" + std::to_string(index));
    EXPECT_EQ(box(0) + "|" + box(16) + "|" + box(31), "1000|1016|-2147483648");
    EXPECT_TRUE(refreshes());
    click(form, "Close");
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_FALSE(refreshes());
}

TEST_F(VariableFormTest, StopsForGoodAtTheFirstFailure) {
    struct Row {
        std::optional<std::string> reply;
        bool lost;
        const char* message;
    };
    const Row table[] = {{"#07", false, "No Response!"},
                         {std::nullopt, false, "No Reply to Command: V7"},
                         {std::nullopt, true, "No Reply to Command: V7"}};
    for (const Row& row : table) {
        VariableForm monitor(services, handedOver, nullptr);
        monitor.Form_Load();
        monitor.show();
        bus.answer = [&](const std::string& request) {
            return request == "@07V7" ? row.reply : "5";
        };
        if (row.lost)
            bus.losesAtReadOf = "V7";
        bus.requests.clear();
        gate.expectMessage(row.message);
        tick(monitor, "Timer1");
        EXPECT_EQ(bus.requests.size(), 8U) << "nothing is asked behind the failure";
        EXPECT_NE(textOf(monitor, "V6"), "0");
        EXPECT_EQ(textOf(monitor, "V8"), "0");
        tick(monitor, "Timer1");
        EXPECT_EQ(bus.requests.size(), 8U);
        expectZeros(monitor);
        EXPECT_FALSE(control<QTimer>(monitor, "Timer1").isActive());
        click(monitor, "Close");
    }
}

TEST_F(VariableFormTest, ShowsZerosWithoutALink) {
    handedOver.CommOK = false;
    handedOver.PortReady = false;
    VariableForm monitor(services, handedOver, nullptr);
    monitor.Form_Load();
    monitor.show();
    tick(monitor, "Timer1");
    expectZeros(monitor);
    EXPECT_FALSE(control<QTimer>(monitor, "Timer1").isActive());
    EXPECT_TRUE(bus.openings.empty());

    bus.opens = false;
    open();
    gate.expectMessage("No Reply to Command: V0");
    tick(form, "Timer1");
    tick(form, "Timer1");
    expectZeros(form);
    enter("PX");
    form.close();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(VariableFormTest, SendsCommandsToTheirOwnAddressAndReportsNothing) {
    open();
    control<QLineEdit>(form, "DeviceID").setText(QStringLiteral("8"));
    enter("V3=25");
    EXPECT_EQ(bus.requests, std::vector<std::string>{"@08V3=25"});
    EXPECT_EQ(textOf(form, "SendText"), "");
    bus.requests.clear();
    enter("");
    EXPECT_TRUE(bus.requests.empty());
    enter("ZSR");
    EXPECT_EQ(waits.slept, 1200ms);
    tick(form, "Timer1");
    EXPECT_EQ(box(0), "1000") << "the entry's reply was read and dropped";

    gate.expectMessageWith("\"100\" in the field \"Device ID\"");
    control<QLineEdit>(form, "DeviceID").setText(QStringLiteral("100"));
    bus.requests.clear();
    enter("V3=26");
    EXPECT_TRUE(bus.requests.empty());
}

TEST_F(VariableFormTest, SendsCommandsToASilentDeviceToo) {
    open();
    bus.silent = true;
    gate.expectMessage("No Reply to Command: V0");
    tick(form, "Timer1");
    bus.requests.clear();
    bus.emptyReads = 0;
    enter("V3=25");
    EXPECT_EQ(bus.requests, std::vector<std::string>{"@07V3=25"});
    EXPECT_EQ(bus.emptyReads, 101);
    bus.losesAtReadOf = "V3=26";
    enter("V3=26");
    enter("V3=27");
}

}  // namespace
}  // namespace zlt::test
