#include <gtest/gtest.h>

#include <QLineEdit>

#include "support/FormDriver.h"
#include "support/World.h"
#include "terminal/forms/VariableForm.h"

namespace zlt::test {
namespace {

class VariableFormTest : public ::testing::Test, public World {
 protected:
    VariableFormTest() {
        form.Form_Load();
        form.show();
        form.grab();  // painted, though no event loop runs
    }
    /// What the boxes from V0 to V31 show.
    std::vector<std::string> boxes() {
        std::vector<std::string> texts;
        texts.reserve(32);
        for (int index = 0; index < 32; ++index)
            texts.push_back(textOf(form, ("V" + std::to_string(index)).c_str()));
        return texts;
    }
    void enterFor(const char* address, const char* command) {
        control<QLineEdit>(form, "DeviceID").setText(QString::fromLatin1(address));
        control<QLineEdit>(form, "SendText").setText(QString::fromLatin1(command));
        press(form, "SendText", Qt::Key_Return);
    }

    QColor inkOfTheFirst() { return control<QWidget>(form, "V0").palette().color(QPalette::Text); }

    VariableForm form{services, {true, true, {{3}, "9600", "07"}, {}}, nullptr};
};

TEST_F(VariableFormTest, ReadsAllVariablesInOrder) {
    std::vector<std::string> requests, values;
    for (int index = 0; index < 32; ++index) {
        requests.push_back("@07V" + std::to_string(index));
        values.push_back(std::to_string(index - 16));
        bus.replies["V" + std::to_string(index)] = "#07" + values.back();
    }
    EXPECT_EQ(bus.openings, std::vector<std::string>{"3 9600"});
    EXPECT_EQ(textOf(form, "DeviceID"), "07");
    control<QLineEdit>(form, "DeviceID").setText(QStringLiteral("9"));
    EXPECT_EQ(textOf(form, "valuesNote"), "Values of device 07");
    tick(form, "Timer1");
    EXPECT_EQ(bus.requests, requests) << "whatever stands in the box for the command";
    EXPECT_EQ(boxes(), values);
    EXPECT_EQ(shownOn(form, "Timer1"), "on");
    click(form, "Close");
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_EQ(shownOn(form, "Timer1"), "off");
}

TEST_F(VariableFormTest, StopsForGoodAtTheFirstFailureAndSaysWhy) {
    const QColor live = inkOfTheFirst();
    bus.answer = [](const std::string& request) {
        return request == "@07V7" ? std::nullopt : std::optional("5");
    };
    const auto why =
        "Not reading: no answer to V7 from device 07.  "
        "Close, wait for Communication OK, open again.";
    gate.expectMessage("No Reply to Command: V7", [&] {
        EXPECT_EQ(textOf(form, "valuesNote"), why) << "under the message already";
        EXPECT_NE(inkOfTheFirst(), live);
    });
    tick(form, "Timer1");
    tick(form, "Timer1");
    EXPECT_EQ(bus.requests.size(), 8U) << "nothing is asked after the failure";
    EXPECT_EQ(boxes(), std::vector<std::string>(32, "0"));
    EXPECT_EQ(shownOn(form, "Timer1"), "off");
    EXPECT_EQ(textOf(form, "valuesNote"), why);
    EXPECT_NE(inkOfTheFirst(), live);
}

TEST_F(VariableFormTest, KeepsNotesAndValuesTogetherWhenStretched) {
    const auto gap = [this](const char* above, const char* below) {
        const auto edge = [this](const char* name, QPoint corner) {
            return control<QWidget>(form, name).mapTo(&form, corner).y();
        };
        return edge(below, {}) - edge(above, {0, control<QWidget>(form, above).height()});
    };
    const int asMade[] = {gap("valuesNote", "V0"), gap("V7", "flashNote")};
    form.resize(form.size() * 2);
    form.grab();
    EXPECT_EQ(gap("valuesNote", "V0"), asMade[0]);
    EXPECT_EQ(gap("V7", "flashNote"), asMade[1]);
}

TEST_F(VariableFormTest, SaysWhatItHasNotGotToReadOver) {
    bus.losesAtReadOf = "V0";
    bus.silent = true;
    gate.expectMessage("No Reply to Command: V0");
    tick(form, "Timer1");
    EXPECT_EQ(textOf(form, "valuesNote"),
              "Not reading: the port is lost.  Close this screen; the panel says more.");
    VariableForm unconnected(services, {true, false, {{3}, "9600", "07"}, {}}, nullptr);
    unconnected.Form_Load();
    EXPECT_EQ(textOf(unconnected, "valuesNote"),
              "Not reading: no communication with device 07.  "
              "Close, wait for Communication OK, open again.");
}

TEST_F(VariableFormTest, IsSeenBeforeItsFirstRefresh) {
    VariableForm unseen(services, {true, true, {{3}, "9600", "07"}, {}}, nullptr);
    unseen.Form_Load();
    tick(unseen, "Timer1");
    EXPECT_TRUE(bus.requests.empty()) << "the old pixels would stand while it blocks";
    unseen.grab();
    tick(unseen, "Timer1");
    EXPECT_EQ(bus.requests.size(), 32U);
}

TEST_F(VariableFormTest, SendsCommandsToTheirOwnAddressAndReportsNothing) {
    enterFor("8", "ZSR");
    enterFor("8", "");
    EXPECT_EQ(bus.requests, std::vector<std::string>{"@08ZSR"});
    EXPECT_EQ(waits.slept.count(), 1200);
    bus.replies["V0"] = "1000";
    tick(form, "Timer1");
    EXPECT_EQ(boxes().front(), "1000") << "the entry's reply was read and dropped";

    gate.expectMessageWith("\"100\" in the field \"Device ID\"");
    bus.requests.clear();
    enterFor("100", "V3=26");
    EXPECT_TRUE(bus.requests.empty());
    EXPECT_EQ(textOf(form, "SendText"), "V3=26");
    bus.losesAtReadOf = "V3=26";
    bus.silent = true;
    for (const char* command : {"V3=25", "V3=26", "V3=27"})
        enterFor("8", command);
}

}  // namespace
}  // namespace zlt::test
