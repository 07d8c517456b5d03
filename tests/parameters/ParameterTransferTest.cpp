// What moves between the screen and the controller, in which order, and what ends it.

#include <QApplication>
#include <QComboBox>

#include "SetupWorld.h"

namespace zlt::test {
namespace {

using State = ChangeMark::State;

const Commands wholeUpload{"DN",  "CURR", "CURI",   "MS",    "POL", "DL",
                           "LCA", "HCA",  "DOBOOT", "SLOAD", "DB",  "RT"};
const Commands wholeDown{"CURR=800", "CURI=300", "MS=16",  "POL=5",    "DN", "DL=1",
                         "SLOAD=3",  "HCA=20",   "LCA=10", "DOBOOT=6", "DB", "RT=1"};

Commands upTo(const Commands& all, const std::string& last) {
    return {all.begin(), std::find(all.begin(), all.end(), last) + 1};
}

class ParameterTransferTest : public SetupWorld {};

TEST_F(ParameterTransferTest, ReadsTheSetInItsOrderWhenItOpens) {
    open();
    EXPECT_EQ(bus.openings, Commands{"3 9600,N,8,1"});
    EXPECT_EQ(bus.requests.front(), "@01DN");
    EXPECT_EQ(bus.takeCommands(), wholeUpload);
    for (const auto& [control, text] : {std::pair{"DeviceIDCombo", "42"},
                                        {"RunCurrentSelect", "800"},
                                        {"IdleCurrentSelect", "300"},
                                        {"Microstep", "16"},
                                        {"LCA", "10"},
                                        {"HCA", "20"},
                                        {"DOBOOT", "6"},
                                        {"baudCombo", "38400"}})
        EXPECT_EQ(shown(control), text) << control;
    for (const char* box : {"DisableLimit", "Autostart", "Autostart1", "RT"})
        EXPECT_TRUE(checked(box)) << box;
    EXPECT_EQ(commandsOf("UploadPar"), wholeUpload);
}

TEST_F(ParameterTransferTest, OffersTheListsOfTheController) {
    openRead();
    const auto entries = [this](const char* name) {
        const auto& box = control<QComboBox>(*form, name);
        std::string all;
        for (int i = 0; i < box.count(); ++i)
            all += box.itemText(i).toStdString() + " ";
        return all;
    };
    EXPECT_EQ(entries("Microstep"), "1 2 4 16 ");
    EXPECT_EQ(entries("baudCombo"), "9600 19200 38400 57600 115200 ");
    EXPECT_EQ(entries("RunCurrentSelect"), entries("IdleCurrentSelect"));
    EXPECT_TRUE(entries("RunCurrentSelect").ends_with("1400 1500 "));
    EXPECT_EQ(control<QComboBox>(*form, "DeviceIDCombo").count(), 99);
}

TEST_F(ParameterTransferTest, GatesBothDirectionsByFirmware) {
    const Commands shortUpload{"DN", "CURR", "CURI", "MS", "POL", "SLOAD", "DB", "RT"};
    const Commands middleUpload{"DN", "CURR", "CURI", "MS", "POL", "DL", "SLOAD", "DB", "RT"};
    const Commands shortDown{"CURR=800", "CURI=300", "MS=16",   "POL=5", "DN",  "SLOAD=1",
                             "HCA=",     "LCA=",     "DOBOOT=", "DB",    "RT=1"};
    const Commands middleDown{"CURR=800", "CURI=300", "MS=16", "POL=5",   "DN", "DL=1",
                              "SLOAD=1",  "HCA=",     "LCA=",  "DOBOOT=", "DB", "RT=1"};
    struct Row {
        int firmware;
        const Commands &upload, &down;
        bool limit, home;
    };
    const Row table[] = {{316, shortUpload, shortDown, false, false},
                         {317, middleUpload, middleDown, true, false},
                         {321, middleUpload, middleDown, true, false},
                         {322, wholeUpload, wholeDown, true, true}};
    for (const Row& row : table) {
        SCOPED_TRACE(row.firmware);
        open(row.firmware);
        EXPECT_EQ(bus.takeCommands(), row.upload);
        gate.expectMessage("Download Done!");
        EXPECT_EQ(commandsOf("DownloadPar"), row.down);
        EXPECT_EQ(enabled("DisableLimit"), row.limit);
        EXPECT_EQ(checked("DisableLimit"), row.limit) << "as it was before";
        for (const char* name : {"Autostart1", "LCA", "HCA", "DOBOOT"}) {
            EXPECT_EQ(enabled(name), row.home) << name;
            EXPECT_EQ(control<QWidget>(*form, name).toolTip().contains(QStringLiteral("V322")),
                      !row.home);
        }
        EXPECT_EQ(checked("Autostart1"), row.home) << "bit 1 is not shown on old firmware";
    }
}

TEST_F(ParameterTransferTest, TurnsWordsIntoMarksAndBack) {
    const std::pair<const char*, const char*> pairs[] = {{"DirPol1", "DirPol2"},
                                                         {"LimPol1", "LimPol2"},
                                                         {"HomePol1", "HomePol2"},
                                                         {"dopol1", "dopol2"},
                                                         {"sapol1", "sapol2"}};
    openRead();
    for (const auto& [reply, word] :
         {std::pair{"31", 31}, {"0", 0}, {"32", 0}, {" 42", 10}, {"-1", 31}, {"20.4", 20}}) {
        bus.replies["POL"] = reply;
        click(*form, "UploadPar");
        for (int bit = 0; bit < 5; ++bit) {
            EXPECT_EQ(checked(pairs[bit].second), (word >> bit & 1) != 0) << reply;
            EXPECT_NE(checked(pairs[bit].first), checked(pairs[bit].second)) << reply;
        }
        bus.takeCommands();
        gate.expectMessage("Download Done!");
        EXPECT_EQ(commandsOf("DownloadPar")[3], "POL=" + std::to_string(word));
    }
    for (const auto& [reply, program0, program1] :
         {std::tuple{"0", false, false}, {"1", true, false}, {"6", false, true}}) {
        bus.replies["SLOAD"] = reply;
        click(*form, "UploadPar");
        EXPECT_EQ(checked("Autostart"), program0) << reply;
        EXPECT_EQ(checked("Autostart1"), program1) << reply;
    }
    for (const auto& [reply, limit, name] :
         {std::tuple{"2", true, false}, {"0", false, false}, {"1", true, true}}) {
        bus.replies["DL"] = bus.replies["RT"] = reply;
        click(*form, "UploadPar");
        EXPECT_EQ(checked("DisableLimit"), limit) << reply;
        EXPECT_EQ(checked("RT"), name) << reply;
    }
}

TEST_F(ParameterTransferTest, EndsAnUploadWhereTheLinkIsLookedAt) {
    for (const std::string& command : wholeUpload)
        for (const bool empty : {false, true}) {
            SCOPED_TRACE(command + (empty ? " empty" : " silent"));
            bus.answer = nullptr;
            openRead();
            const std::string before = bus.replies[command];
            if (empty)
                bus.replies[command].clear();
            else
                silence(command);
            gate.expectMessage(empty ? "No Response!" : "No Reply to Command: " + command);
            EXPECT_EQ(commandsOf("UploadPar"), upTo(wholeUpload, command));
            bus.replies[command] = before;
            for (const char* button : {"UploadPar", "DownloadPar", "SetSN"}) {
                gate.expectMessage("Communication with device not open!");
                EXPECT_EQ(commandsOf(button), Commands{});
            }
        }
}

TEST_F(ParameterTransferTest, LeavesTheZeroOfAFailedExchangeOnTheScreen) {
    openRead();
    silence("CURI");
    gate.expectMessageWith("CURI");
    click(*form, "UploadPar");
    EXPECT_EQ(shown("IdleCurrentSelect"), "0");
    EXPECT_EQ(mark("IdleCurrentSelect"), State::differs) << "the controller's word was 300";
    EXPECT_EQ(shown("Microstep"), "16");

    bus.answer = nullptr;
    openRead();
    silence("DL");
    gate.expectMessageWith("DL");
    click(*form, "UploadPar");
    for (const char* field : {"LCA", "HCA", "DOBOOT"})
        EXPECT_EQ(shown(field), "0");
    for (const char* box : {"DisableLimit", "Autostart", "Autostart1"})
        EXPECT_FALSE(checked(box));
    EXPECT_EQ(shown("baudCombo"), "38400");
    EXPECT_TRUE(checked("RT"));

    silence("CURR");
    gate.expectMessageWith("CURR");
    open();
    EXPECT_EQ(mark("DeviceIDCombo"), State::same);
    EXPECT_EQ(shown("RunCurrentSelect"), "0");
    EXPECT_EQ(mark("RunCurrentSelect"), State::unread) << "never read on this screen";
}

TEST_F(ParameterTransferTest, EndsADownWhereTheLinkIsLookedAt) {
    for (const std::string& command : wholeDown)
        for (const bool empty : {false, true}) {
            SCOPED_TRACE(command + (empty ? " empty" : " silent"));
            bus.answer = nullptr;
            openRead();
            const auto before = bus.replies;
            if (empty)
                bus.replies[command].clear();
            else
                silence(command);
            gate.expectMessage(empty ? "No Response!" : "No Reply to Command: " + command);
            if (command == "RT=1")
                gate.expectMessage("Download Done!");
            EXPECT_EQ(commandsOf("DownloadPar"), upTo(wholeDown, command));
            bus.replies = before;
        }
}

TEST_F(ParameterTransferTest, EndsAnUploadAtAReplyThatIsNoNumber) {
    for (const char* command : {"POL", "DL", "SLOAD", "DB", "RT"})
        for (const char* reply : {"?", "12abc", " ", "99999999999"}) {
            openRead();
            const auto before = bus.replies;
            bus.replies = {{"DN", "ZLD05"},  {"CURR", "900"}, {"CURI", "400"}, {"MS", "2"},
                           {"POL", "10"},    {"DL", "0"},     {"LCA", "11"},   {"HCA", "21"},
                           {"DOBOOT", "61"}, {"SLOAD", "0"},  {"DB", "1"},     {"RT", "0"}};
            bus.replies[command] = reply;
            gate.expectMessage("The reply to the command " + std::string(command) +
                               " is not a number: \"" + reply + "\"");
            EXPECT_EQ(commandsOf("UploadPar"), upTo(wholeUpload, command));
            EXPECT_EQ(shown("RunCurrentSelect"), "900");
            EXPECT_TRUE(checked("RT")) << "as it was";
            EXPECT_EQ(checked("DirPol2"), command == std::string("POL"));
            bus.replies = before;
        }
}

TEST_F(ParameterTransferTest, KeepsAndSendsWhateverIsTyped) {
    openRead();
    type("RunCurrentSelect", "");
    type("IdleCurrentSelect", " 15");
    type("Microstep", "8");
    type("LCA", "-2147483648");
    type("HCA", "");
    type("DOBOOT", "\xC2\xB5x");
    EXPECT_EQ(bus.takeCommands(), Commands{}) << "typing sends nothing";
    gate.expectMessage("Download Done!");
    EXPECT_EQ(commandsOf("DownloadPar"),
              (Commands{"CURR=", "CURI= 15", "MS=8", "POL=5", "DN", "DL=1", "SLOAD=3",
                        "HCA=", "LCA=-2147483648", "DOBOOT=\xB5x", "DB", "RT=1"}));
    type("HCA",
         "\xE2\x88\x92"
         "5");
    gate.expectMessageWith("U+2212");
    EXPECT_EQ(commandsOf("DownloadPar"), Commands{});
    type("HCA", "7\r@01X5000");
    gate.expectMessageWith("control character");
    EXPECT_EQ(commandsOf("DownloadPar"), Commands{}) << "no second command behind the first";
}

TEST_F(ParameterTransferTest, TellsThatThePortIsNotOpen) {
    const std::string notOpen = "Communication port not open!";
    handOver.PortReady = false;
    gate.expectMessage(notOpen);
    open();
    EXPECT_EQ(bus.openings, Commands{});

    handOver.PortReady = true;
    bus.opens = false;
    gate.expectMessage(notOpen);
    open();
    for (const char* button : {"UploadPar", "DownloadPar", "SetSN"}) {
        gate.expectMessage(notOpen);
        EXPECT_EQ(commandsOf(button), Commands{});
    }
    bus.opens = true;
    openRead();
    bus.losesAtWriteOf = "MS=16";
    gate.expectMessage(notOpen);
    EXPECT_EQ(commandsOf("DownloadPar"), (Commands{"CURR=800", "CURI=300"}));
    gate.expectMessage(notOpen);
    EXPECT_EQ(commandsOf("UploadPar"), Commands{});
    click(*form, "Close");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ParameterTransferTest, OpensAfreshAfterALostConnection) {
    handOver.CommOK = false;
    gate.expectMessage("Communication with device not open!");
    open();
    EXPECT_EQ(bus.portsOpen, 1);
    EXPECT_EQ(shown("DeviceIDCombo"), "01");
    EXPECT_EQ(shown("baudCombo"), "9600");
    for (const char* clear : {"DirPol1", "LimPol1", "HomePol1", "dopol1", "sapol1"})
        EXPECT_TRUE(checked(clear)) << clear;
    click(*form, "Close");
    EXPECT_EQ(bus.portsOpen, 0);

    handOver.CommOK = true;
    open();
    EXPECT_EQ(bus.takeCommands(), wholeUpload);
    form->close();  // by the window's frame
    EXPECT_EQ(bus.portsOpen, 0);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ParameterTransferTest, MarksWhatDiffersFromTheControllersWord) {
    openRead();
    EXPECT_EQ(shown("pendingCount"), "Nothing to write");
    type("RunCurrentSelect", "900");
    EXPECT_EQ(shown("pendingCount"), "1 value not written yet");
    click(*form, "sapol2");
    click(*form, "RT");
    EXPECT_EQ(mark("RunCurrentSelect"), State::differs);
    EXPECT_EQ(mark("sapol1"), State::differs);
    EXPECT_EQ(mark("RT"), State::differs);
    EXPECT_EQ(mark("IdleCurrentSelect"), State::same);
    EXPECT_EQ(shown("pendingCount"), "3 values not written yet");

    bus.replies["POL=21"] = "?refused";
    gate.expectMessage("Download Done!");
    click(*form, "DownloadPar");
    EXPECT_EQ(mark("sapol1"), State::differs) << "the controller did not agree";
    EXPECT_EQ(shown("pendingCount"), "1 value not written yet");
    click(*form, "UploadPar");
    EXPECT_EQ(shown("pendingCount"), "Nothing to write") << shown("RunCurrentSelect");
    EXPECT_EQ(shown("RunCurrentSelect"), "800");

    bus.replies["DB"] = "7";
    click(*form, "UploadPar");
    EXPECT_EQ(shown("baudCombo"), "38400") << "a code that stands for no rate";
    EXPECT_EQ(mark("baudCombo"), State::differs);

    openRead(316);
    EXPECT_EQ(mark("DisableLimit"), State::same) << "neither read nor written";
    EXPECT_EQ(mark("HCA"), State::unread);
    EXPECT_EQ(shown("pendingCount"), "1 value not written yet, 4 not read");
}

TEST_F(ParameterTransferTest, ShowsThatItIsAtWork) {
    std::string activity;
    bool busy = false;
    openRead();
    bus.answer = [&](const std::string& request) -> std::optional<std::string> {
        activity = shown("activity");
        busy = QApplication::overrideCursor() != nullptr;
        return bus.replies.count(request.substr(3)) ? bus.replies[request.substr(3)] : "OK";
    };
    gate.expectMessage("Download Done!");
    gate.expectQuestion("Store to Flash", "Are you sure you want to save parameters to flash?",
                        true);
    gate.expectMessage("Store to Flash done!");
    for (const auto& [button, text] : {std::pair{"UploadPar", "Reading from the controller..."},
                                       {"DownloadPar", "Writing to the controller..."},
                                       {"SetSN", "Storing to flash..."}}) {
        click(*form, button);
        EXPECT_EQ(activity, text);
        EXPECT_TRUE(busy);
        EXPECT_EQ(shown("activity"), "");
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
}

}  // namespace
}  // namespace zlt::test
