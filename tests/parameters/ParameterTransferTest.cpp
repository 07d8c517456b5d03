// What moves between the screen and the controller, in which order, and what ends it.

#include "SetupWorld.h"

namespace zlt::test {
namespace {

class ParameterTransferTest : public SetupWorld {};

TEST_F(ParameterTransferTest, ReadsTheSetWhenItOpensAndWritesItAsRead) {
    EXPECT_EQ(open(), wholeUpload);
    EXPECT_EQ(bus.openings, Commands{"3 9600"});
    EXPECT_EQ(shown("DeviceIDCombo") + " " + shown("baudCombo"), "42 38400");
    EXPECT_EQ(down(), wholeDown);
    const std::pair<const char*, int> offered[] = {{"RunCurrentSelect", 15}, {"Microstep", 4}};
    for (const auto& [name, entries] : offered)
        EXPECT_EQ(control<QComboBox>(*form, name).count(), entries) << name;
}

TEST_F(ParameterTransferTest, GatesBothDirectionsByFirmware) {
    Commands upload{"DN", "CURR", "CURI", "MS", "POL", "DL", "SLOAD", "DB", "RT"};
    Commands written{"CURR=800", "CURI=300", "MS=16", "POL=5",   "DN", "DL=1",
                     "SLOAD=1",  "HCA=",     "LCA=",  "DOBOOT=", "DB", "RT=1"};
    for (const int firmware : {321, 317, 316}) {
        SCOPED_TRACE(firmware);
        if (firmware == 316) {
            std::erase(upload, "DL");
            std::erase(written, "DL=1");
        }
        EXPECT_EQ(open(firmware), upload);
        EXPECT_EQ(shown("pendingCount"), "4 not read");
        EXPECT_EQ(down(), written);
        EXPECT_EQ(control<QWidget>(*form, "DisableLimit").isEnabled(), firmware > 316);
        for (const char* name : {"Autostart1", "LCA", "HCA", "DOBOOT"})
            EXPECT_FALSE(control<QWidget>(*form, name).isEnabled()) << name;
    }
}

TEST_F(ParameterTransferTest, TurnsWordsIntoMarksAndBack) {
    const std::tuple<std::string, const char*, const char*, const char*> table[] = {
        {"POL", "-1", "31", "DirPol2 LimPol2 HomePol2 dopol2 sapol2 "},
        {"POL", " 42", "10", "LimPol2 dopol2 "},
        {"SLOAD", "6", "2", "Autostart1 "},
        {"DL", "2", "1", "DisableLimit "},
        {"RT", "2", "0", ""}};
    bus.replies["POL"] = bus.replies["SLOAD"] = bus.replies["DL"] = bus.replies["RT"] = "0";
    open();
    for (const auto& [command, reply, written, marks] : table) {
        SCOPED_TRACE(command + " " + reply);
        bus.replies[command] = reply;
        commandsOf("UploadPar");
        std::string set;
        for (const std::string name : {"DirPol2", "LimPol2", "HomePol2", "dopol2", "sapol2",
                                       "DisableLimit", "Autostart", "Autostart1", "RT"})
            set += shown(name.c_str()) == "on" ? name + " " : "";
        EXPECT_EQ(set, marks);
        const Commands sent = down();
        EXPECT_EQ(std::count(sent.begin(), sent.end(), command + "=" + written), 1);
        bus.replies[command] = "0";
    }
    bus.replies["DL"] = "12abc";
    gate.expectMessage("The reply to the command DL is not a number: \"12abc\"");
    EXPECT_EQ(commandsOf("UploadPar").back(), "DL");
}

TEST_F(ParameterTransferTest, EndsWhereTheLinkIsLookedAt) {
    for (const auto& [button, order] :
         {std::pair{"UploadPar", wholeUpload}, {"DownloadPar", wholeDown}})
        for (auto command = order.begin(); command != order.end(); ++command) {
            SCOPED_TRACE(*command);
            bus.silentAt.reset();
            open();
            bus.silentAt = *command;
            gate.expectMessage("No Reply to Command: " + *command);
            if (*command == "RT=1")
                gate.expectMessage("Download Done!");
            EXPECT_EQ(commandsOf(button), Commands(order.begin(), command + 1));
            EXPECT_EQ(shown("RT"), *command == "RT" ? "off" : "on") << "not reached";
            gate.expectMessage("Communication with device not open!");
            EXPECT_EQ(commandsOf("DownloadPar"), Commands{});
        }
}

TEST_F(ParameterTransferTest, SendsNothingOfASetThatTheWireCannotCarry) {
    open();
    type("HCA", "7\r@01X5000");
    gate.expectMessageWith("control character");
    EXPECT_EQ(commandsOf("DownloadPar"), Commands{});
}

TEST_F(ParameterTransferTest, ShowsNobodysWordWithoutAPort) {
    bus.opens = false;
    gate.expectMessage("Communication port not open!");
    EXPECT_EQ(open(), Commands{});
    EXPECT_EQ(shown("DeviceIDCombo") + " " + shown("baudCombo"), "01 9600");
    for (const char* clear : {"DirPol1", "LimPol1", "HomePol1", "dopol1", "sapol1"})
        EXPECT_EQ(shown(clear), "on") << clear;
    gate.expectMessage("Communication port not open!");
    EXPECT_EQ(commandsOf("SetSN"), Commands{});
}

TEST_F(ParameterTransferTest, MarksWhatDiffersFromTheControllersWord) {
    open();
    EXPECT_EQ(shown("pendingCount"), "Nothing to write");
    type("HCA", "21");
    EXPECT_EQ(shown("pendingCount"), "1 value not written yet");
    for (const char* button : {"sapol2", "Autostart1"})
        click(*form, button);
    for (const char* changed : {"HCA", "sapol1", "Autostart1"})
        EXPECT_EQ(mark(changed), State::differs) << changed;
    EXPECT_EQ(shown("pendingCount"), "3 values not written yet");
    bus.replies["POL=21"] = "?refused";
    down();
    EXPECT_EQ(mark("sapol1"), State::differs) << "the controller did not agree";
    EXPECT_EQ(shown("pendingCount"), "1 value not written yet");

    bus.replies["DB"] = "7";
    click(*form, "UploadPar");
    EXPECT_EQ(shown("baudCombo"), "38400") << "a code that stands for no rate";
    EXPECT_EQ(mark("baudCombo"), State::differs);
    EXPECT_EQ(shown("pendingCount"), "1 value not written yet") << "the others as read";

    bus.silentAt = "CURI";
    gate.expectMessage("No Reply to Command: CURI",
                       [this] { EXPECT_EQ(shown("activity"), "Reading from the controller..."); });
    click(*form, "UploadPar");
    EXPECT_EQ(shown("activity"), "");
    EXPECT_EQ(shown("IdleCurrentSelect"), "0");
    EXPECT_EQ(mark("IdleCurrentSelect"), State::differs) << "the controller's word was 300";
}

}  // namespace
}  // namespace zlt::test
