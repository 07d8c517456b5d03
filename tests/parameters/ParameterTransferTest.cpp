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
        EXPECT_EQ(shown("pendingCount"), "Nothing to write") << "what it lacks is not missing";
        EXPECT_EQ(compared(), "");
        bus.replies["LCA="] = "?";
        EXPECT_EQ(down(), written);
        EXPECT_EQ(shown("storeNote"), "") << "what it lacks needs no store";
        EXPECT_EQ(shown("outcome").substr(0, 19), "Nothing was changed");
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
            EXPECT_EQ(shown("RT") + shown("IdleCurrentSelect"), "on300")
                << "no \"0\" that no controller said";
            gate.expectMessage("Communication with device not open!");
            EXPECT_EQ(commandsOf("DownloadPar"), Commands{});
        }
}

TEST_F(ParameterTransferTest, SendsNothingOfASetThatTheWireCannotCarry) {
    open();
    for (const char* button : {"DownloadPar", "SaveParameters"}) {
        type("HCA", "7\r@01X5000");
        gate.expectMessageWith("In the field \"HCA\": The text holds a line end");
        EXPECT_EQ(commandsOf(button), Commands{});
        EXPECT_EQ(form->focusWidget(), findNamed(*form, "HCA"));
    }
    type("HCA", "20");
    type("Microstep", std::string(32'768, '1').c_str());
    gate.expectMessage("In the field \"microstep\": The text is longer than 32767 characters.");
    EXPECT_EQ(commandsOf("DownloadPar"), Commands{});
    EXPECT_EQ(form->focusWidget(), findNamed(*form, "Microstep"));
}

TEST_F(ParameterTransferTest, ShowsNoValueWithoutAPort) {
    bus.opens = false;
    gate.expectMessage("Communication port not open!");
    EXPECT_EQ(open(), Commands{});
    EXPECT_EQ(shown("DeviceIDCombo") + " " + shown("baudCombo"), "01 9600");
    for (const char* clear : {"DirPol1", "LimPol1", "HomePol1", "dopol1", "sapol1"})
        EXPECT_EQ(shown(clear), "on") << clear;
    gate.expectMessage("Communication port not open!");
    EXPECT_EQ(commandsOf("SetSN"), Commands{});
}

TEST_F(ParameterTransferTest, MarksEachValueByTheReplyToIt) {
    struct Row {
        const char *command, *reply;  ///< null: silence
        const char *control, *shown;  ///< after the reply
        State mark;
        const char* told;  ///< in the message at the end, or on the screen
    };
    const char *up = "UploadPar", *down = "DownloadPar";
    const std::pair<const char*, std::vector<Row>> table[] = {
        {up,
         {{"DN", "XYZ07", "DeviceIDCombo", "42", State::unread, "device ID"},
          {"DN", "ZLD4", "DeviceIDCombo", "42", State::unread, "device ID"},
          {"DN", "ZLD431", "DeviceIDCombo", "43", State::same, ""},
          {"CURR", "8?0", "RunCurrentSelect", "8?0", State::unread, "run current"},
          {"MS", "OK", "Microstep", "OK", State::unread, "microstep"},
          {"HCA", "8?0", "HCA", "8?0", State::same, ""},
          {"CURI", nullptr, "IdleCurrentSelect", "300", State::unread, "idle current"},
          {"POL", "x5", "sapol1", "on", State::unread, "polarity"},
          {"DL", "", "DisableLimit", "on", State::unread, "limit disable"},
          {"SLOAD", "1e3", "Autostart1", "on", State::unread, "auto run 0, auto run 1"},
          {"LCA", "1\t0", "LCA", "10", State::unread, "LCA"},
          {"DB", "fast", "baudCombo", "38400", State::unread, "baud rate"},
          {"DB", "7", "baudCombo", "38400", State::differs, ""},
          {"RT", nullptr, "RT", "on", State::unread, "name in replies"}}},
        {down,
         {{"CURR=900", "OK", "RunCurrentSelect", "900", State::same, ""},
          {"CURR=900", "?", "RunCurrentSelect", "900", State::refused,
           "run current: \"?\" to \"CURR=900\""},
          {"CURR=900", nullptr, "RunCurrentSelect", "900", State::unread, ""}}}};
    for (const auto& [button, rows] : table)
        for (const auto& [command, reply, name, after, expected, told] : rows) {
            SCOPED_TRACE(std::string(command) + " " + (reply ? reply : "nothing"));
            bus.silentAt.reset();
            const auto before = bus.replies;
            open();
            if (button == down)
                type("RunCurrentSelect", "900");
            const std::string words = told;
            const bool failed = !reply || !*reply;
            if (failed)
                gate.expectMessageWith(reply ? "No Response!" : "No Reply to Command: ");
            else if (button == down)
                gate.expectMessage("Download Done!");
            else if (!words.empty())
                gate.expectMessageWith("Not read from the controller: " + words + ". ");
            if (reply)
                bus.replies[command] = reply;
            else
                bus.silentAt = command;
            click(*form, button);
            EXPECT_EQ(shown(name), after);
            EXPECT_EQ(mark(name), expected);
            const char* outcome = button == up ? "Not read: " : "Refused: ";
            EXPECT_EQ(shown("outcome"), words.empty() ? "" : outcome + words);
            bus.replies = before;
        }
}

TEST_F(ParameterTransferTest, SaysWhatTheControllerSaidInPlaceOfOk) {
    bus.replies["POL=21"] = "?<b>";
    open();
    click(*form, "sapol2");
    down();
    auto& cross = control<ChangeMark>(*form, "sapol1Mark");
    EXPECT_EQ(cross.toolTip().toStdString(),
              "<qt>Refused: the controller answered &quot;?&lt;b&gt;&quot;.</qt>");
    EXPECT_EQ(mark("DirPol1"), State::same) << "the other bits are as they were";
    EXPECT_EQ(shown("pendingCount"), "1 refused");
    EXPECT_EQ(shown("Compare"), "on") << "there is something to show";
    EXPECT_EQ(compared(),
              "Polarity\tPOL 21\tPOL 5\tPOL 5\t\n"
              "Polarity SA Err\tset, refused\tclear\tclear\t\n");
    click(*form, "sapol1");
    EXPECT_EQ(mark("sapol1"), State::same);
    click(*form, "sapol2");
    commandsOf("UploadPar");
    EXPECT_EQ(shown("pendingCount"), "Nothing to write");
}

TEST_F(ParameterTransferTest, CountsWhatIsNotWrittenYet) {
    open();
    EXPECT_EQ(shown("pendingCount"), "Nothing to write");
    type("HCA", "21");
    EXPECT_EQ(shown("pendingCount"), "1 value not written yet");
    for (const char* button : {"sapol2", "Autostart1"})
        click(*form, button);
    EXPECT_EQ(shown("pendingCount"), "3 values not written yet");
    bus.silentAt = "CURI";
    gate.expectMessage("No Reply to Command: CURI",
                       [this] { EXPECT_EQ(shown("activity"), "Reading from the controller..."); });
    click(*form, "UploadPar");
    EXPECT_EQ(shown("activity"), "");
    EXPECT_EQ(shown("pendingCount"), "3 values not written yet, 1 not read");
}

TEST_F(ParameterTransferTest, WritesNothingUnaskedThatWasNeverRead) {
    bus.silentAt = "POL";
    gate.expectMessage("No Reply to Command: POL");
    open();
    EXPECT_EQ(shown("outcome"),
              "Not read: baud rate, name in replies, polarity, limit disable, "
              "auto run 0, auto run 1, DO Boot, LCA, HCA");
    bus.silentAt.reset();
    bus.replies["SLOAD"] = "?";
    gate.expectMessageWith("Not read from the controller: auto run 0, auto run 1. ");
    open();
    const std::string question =
        "Not read from the controller: auto run 0, auto run 1.  Write what the screen shows there "
        "all the same?";
    gate.expectQuestion("Down", question, false);
    EXPECT_EQ(commandsOf("DownloadPar"), Commands{});
    gate.expectQuestion("Down", question, true);
    Commands expected = wholeDown;
    std::replace(expected.begin(), expected.end(), std::string("SLOAD=3"), std::string("SLOAD=0"));
    EXPECT_EQ(down(), expected);
    EXPECT_EQ(down(), expected) << "its \"OK\" was the controller's word";
}

}  // namespace
}  // namespace zlt::test
