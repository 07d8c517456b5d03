#include "support/World.h"
#include "terminal/Entering.h"
#include "terminal/VariableForm.h"

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

class VariableFormTest : public ::testing::Test, public World {
 protected:
    /// What the boxes from V0 to V31 show.
    static std::vector<std::string> boxes(QWidget& monitor) {
        std::vector<std::string> texts;
        for (int index = 0; index < 32; ++index)
            texts.push_back(textOf(monitor, ("V" + std::to_string(index)).c_str()));
        return texts;
    }

    LinkHandOver handedOver{true, true, {{3}, "9600", "07"}, {}};
    VariableForm form{services, handedOver, nullptr};
};

TEST_F(VariableFormTest, ReadsAllVariablesInOrder) {
    std::vector<std::string> requests, values;
    for (int index = 0; index < 32; ++index) {
        requests.push_back("@07V" + std::to_string(index));
        values.push_back(std::to_string(index - 16));
        bus.replies["V" + std::to_string(index)] = "#07" + values.back();
    }
    form.Form_Load();
    form.show();
    EXPECT_EQ(bus.openings, std::vector<std::string>{"3 9600,N,8,1"});
    EXPECT_EQ(textOf(form, "DeviceID"), "07");
    control<QLineEdit>(form, "DeviceID").setText(QStringLiteral("9"));
    tick(form, "Timer1");
    EXPECT_EQ(bus.requests, requests) << "whatever stands in the box for the command";
    EXPECT_EQ(boxes(form), values);
    EXPECT_TRUE(control<QTimer>(form, "Timer1").isActive());
    click(form, "Close");
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_FALSE(control<QTimer>(form, "Timer1").isActive());
}

TEST_F(VariableFormTest, StopsForGoodAtTheFirstFailure) {
    struct Row {
        const char* what;
        bool linked, opens, lost;
        std::optional<std::string> reply;  ///< to V7
        const char* message;
        std::size_t requests;
    };
    const Row table[] = {{"no reply", true, true, false, {}, "No Reply to Command: V7", 8},
                         {"an empty one", true, true, false, "#07", "No Response!", 8},
                         {"lost", true, true, true, {}, "No Reply to Command: V7", 8},
                         {"not opened", true, false, false, {}, "No Reply to Command: V0", 0},
                         {"no link from the start", false, true, false, {}, nullptr, 0}};
    for (const Row& row : table) {
        SCOPED_TRACE(row.what);
        handedOver.CommOK = handedOver.PortReady = row.linked;
        VariableForm monitor(services, handedOver, nullptr);
        bus.opens = row.opens;
        bus.losesAtReadOf = row.lost ? std::optional("V7") : std::nullopt;
        bus.requests.clear();
        bus.answer = [&](const std::string& request) {
            return request == "@07V7" ? row.reply : "5";
        };
        monitor.Form_Load();
        monitor.show();
        if (row.message)
            gate.expectMessage(row.message);
        tick(monitor, "Timer1");
        if (row.linked)
            tick(monitor, "Timer1");
        EXPECT_EQ(bus.requests.size(), row.requests) << "nothing is asked behind the failure";
        EXPECT_EQ(boxes(monitor), std::vector<std::string>(32, "0"));
        EXPECT_FALSE(control<QTimer>(monitor, "Timer1").isActive());
        monitor.close();
        EXPECT_EQ(bus.portsOpen, 0);
    }
}

TEST_F(VariableFormTest, SendsCommandsToTheirOwnAddressAndReportsNothing) {
    form.Form_Load();
    form.show();
    const auto enters = [this](const char* address, const char* command) {
        control<QLineEdit>(form, "DeviceID").setText(QString::fromLatin1(address));
        enter(form, "SendText", command);
        return textOf(form, "SendText");
    };
    expectTalks(
        bus,
        {{"8", "V3=25", "OK", "", "@08V3=25"}, {"07", "V3=25", std::nullopt, "", "@07V3=25", 101}},
        enters);
    enters("8", "");
    EXPECT_TRUE(bus.requests.empty());
    enters("8", "ZSR");
    EXPECT_EQ(waits.slept, 1200ms);
    bus.replies["V0"] = "1000";
    tick(form, "Timer1");
    EXPECT_EQ(boxes(form).front(), "1000") << "the entry's reply was read and dropped";

    gate.expectMessageWith("\"100\" in the field \"Device ID\"");
    bus.requests.clear();
    enters("100", "V3=26");
    EXPECT_TRUE(bus.requests.empty());
    bus.losesAtReadOf = "V3=26";
    bus.silent = true;
    enters("8", "V3=26");
    enters("8", "V3=27");
}

}  // namespace
}  // namespace zlt::test
