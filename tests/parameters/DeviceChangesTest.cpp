// The changes that take effect at the next power-up: device ID, baud rate, flash store.

#include "SetupWorld.h"

namespace zlt::test {
namespace {

const char* const idSet =
    "Device ID Set.  Perform store to flash and reset power for new Device ID to take effect.";
const char* const baudSet =
    "Baudrate change done.  Store to flash, exit program, and reset power for new baudrate to "
    "take effect.";
const std::string idQuestion = "Are you sure you want change Device ID to ";
const std::string baudQuestion = "Are you sure you want change the baudrate?";

class DeviceChangesTest : public SetupWorld {};

TEST_F(DeviceChangesTest, AskBeforeADownMakesThem) {
    struct Row {
        const char *control, *typed, *command;
        std::optional<std::string> reply;
        const char* message;
        State after;
    };
    const char *id = "DeviceIDCombo", *baud = "baudCombo", *no = nullptr;
    const Row table[] = {
        {id, "07", "DN=ZLD07", "OK", idSet, State::same},
        {id, "7", "DN=ZLD7", "OK ", "Error setting device ID", State::refused},
        {id, "07", "DN=ZLD07", {}, "No Reply to Command: DN=ZLD07", State::differs},
        {id, "07", no, "", "", State::same},
        {baud, " 57600.0", "DB=4", "OK", baudSet, State::same},
        {baud, "115200", "DB=5", "5", "Error setting baudrate.", State::refused},
        {baud, "9600", no, "", "", State::differs}};
    for (const auto& [name, typed, command, reply, message, after] : table) {
        SCOPED_TRACE(typed);
        bus.silentAt.reset();
        forgetNotes();
        open();
        type(name, typed);
        gate.expectQuestion("Device ID", name == id ? idQuestion + typed + "?" : baudQuestion,
                            command);
        Commands expected = wholeDown;
        auto query = std::find(expected.begin(), expected.end(), name == id ? "DN" : "DB");
        if (command) {
            bus.replies[command] = reply.value_or("");
            gate.expectMessage(message);
            query = expected.insert(query + 1, command);
        }
        if (!reply) {
            bus.silentAt = command;
            expected.erase(query + 1, expected.end());
        }
        EXPECT_EQ(reply ? down() : commandsOf("DownloadPar"), expected);
        EXPECT_EQ(shown(name), name == id && !command ? "42" : typed);
        EXPECT_EQ(mark(name), after);
    }
}

TEST_F(DeviceChangesTest, LeaveABaudRateAloneThatTheControllerLacks) {
    open();
    type("baudCombo", "14400");
    EXPECT_EQ(down(), wholeDown);
}

TEST_F(DeviceChangesTest, StandApartFromWhatIsInUseUntilTheControllerReportsThem) {
    open();
    type("DeviceIDCombo", "05");
    type("baudCombo", "115200");
    gate.expectQuestion("Device ID", idQuestion + "05?", true);
    gate.expectMessage(idSet);
    gate.expectQuestion("Device ID", baudQuestion, true);
    gate.expectMessage(baudSet);
    down();
    const auto notes = [this] { return shown("deviceIdNote") + "|" + shown("baudNote"); };
    const char* const both = "05 after the next power-up|115200 after the next power-up";
    EXPECT_EQ(notes(), both);
    EXPECT_EQ(compared(),
              "Device ID\t05\t42\t05, once stored\t\n"
              "Baud rate\t115200\t38400\t115200, once stored\t\n");
    for (const bool anew : {false, true}) {
        if (anew)
            open();
        else
            commandsOf("UploadPar");
        EXPECT_EQ(shown("DeviceIDCombo") + " " + shown("baudCombo"), "42 38400") << "in use";
        EXPECT_EQ(notes(), both);
        EXPECT_EQ(shown("pendingCount"), "Nothing to write");
        EXPECT_EQ(compared(),
                  "Device ID\t42\t42\t05, once stored\t\n"
                  "Baud rate\t38400\t38400\t115200, once stored\t\n");
    }
    bus.replies["DN"] = "ZLD05";
    commandsOf("UploadPar");
    EXPECT_EQ(notes(), "|115200 after the next power-up");
    bus.replies["DB"] = "5";
    commandsOf("UploadPar");
    EXPECT_EQ(notes(), "|");
    EXPECT_NE(shown("storeNote"), "") << "a word of the controller's is no store";
}

TEST_F(DeviceChangesTest, SayWhatADownMakesOfAnOddId) {
    open();
    EXPECT_EQ(control<QGroupBox>(*form, "deviceGroup").title().toStdString(), "Controller 01")
        << "whom it talks to, whatever the box holds";
    const std::pair<const char*, const char*> table[] = {
        {"7", "Not two digits: Down sends \"DN=ZLD7\""},
        {"1x", "Not two digits: Down sends \"DN=ZLD1x\""},
        {"", "Not two digits: Down sends \"DN=ZLD\""},
        {"00", "All controllers at once: Down sends \"DN=ZLD00\""},
        {"99", ""}};
    for (const auto& [typed, note] : table) {
        type("DeviceIDCombo", typed);
        EXPECT_EQ(shown("deviceIdNote"), note) << typed;
    }
}

TEST_F(DeviceChangesTest, TellAClashBeforeAYesCounts) {
    ScreenLink terminal(services, flavours::terminal, nullptr);
    terminal.takeOver(handOver);
    terminal.openPort();
    terminal.converse({.deviceId = "07", .command = "PX"});
    bus.silentAt = "VER";
    terminal.converse({.deviceId = "08", .command = "VER"});
    terminal.closePort();
    bus.silentAt.reset();
    handOver.notes->noteReply({{4}, "9600", "08"}, "PX", "0");
    open();
    type("DeviceIDCombo", "01");
    EXPECT_EQ(shown("deviceIdNote"), "") << "the one that is addressed is no other";
    type("DeviceIDCombo", "07");
    EXPECT_EQ(shown("deviceIdNote"), "\"07\" has answered on this bus already");
    const std::string clash =
        "A controller with the device ID 07 has answered on this bus.  Two with one ID answer both "
        "at once, and neither is understood.  Change it all the same?";
    gate.expectQuestion("Device ID", idQuestion + "07?", true);
    gate.expectQuestion("Device ID", clash, false);
    EXPECT_EQ(down(), wholeDown);
    EXPECT_EQ(shown("DeviceIDCombo"), "42");
    type("DeviceIDCombo", "08");
    gate.expectQuestion("Device ID", idQuestion + "08?",
                        true);  // silent here, there on another bus
    gate.expectMessage(idSet);
    down();
}

TEST_F(DeviceChangesTest, GoWithTheControllerToItsNewAddress) {
    DeviceNotes notes;
    const Connection before{{3}, "9600", "01"};
    const auto note = [&](const std::optional<std::string>& id,
                          const std::optional<std::string>& rate) {
        notes.of(before) = {.pendingId = id, .pendingBaudRate = rate, .unstored = {{"LCA", "1"}}};
    };
    struct Row {
        Connection at;
        const char* name;
        bool id, rate, ends;
    };
    const Row table[] = {{{{3}, "9600", "05"}, "ZLD05", true, true, true},
                         {{{3}, "115200", "05"}, "ZLD05", true, false, true},
                         {{{3}, "115200", "01"}, "ZLD01", false, true, true},
                         {{{4}, "9600", "05"}, "ZLD05", true, true, false},
                         {{{3}, "9600", "05"}, "garbage", true, true, false},
                         {{{3}, "9600", "01"}, "ZLD01", true, true, false},
                         {{{3}, "57600", "01"}, "ZLD01", false, true, false}};
    for (const auto& [at, name, id, rate, ends] : table) {
        SCOPED_TRACE(at.baudRate + " " + at.deviceId + " " + name);
        note(id ? std::optional<std::string>("05") : std::nullopt,
             rate ? std::optional<std::string>("115200") : std::nullopt);
        notes.noteReply(at, "DN", name);
        EXPECT_EQ(!notes.of(before).isPending(), ends);
        EXPECT_EQ(notes.of(before).unstored.empty(), ends);
    }
}

class FlashStoreTest : public SetupWorld {
 protected:
    void store(const char* message) {
        gate.expectQuestion("Store to Flash", "Are you sure you want to save parameters to flash?",
                            message);
        if (message)
            gate.expectMessage(message);
        EXPECT_EQ(commandsOf("SetSN"), message ? Commands{"STORE"} : Commands{});
    }
    bool saysNotStored() { return !shown("storeNote").empty(); }
};

TEST_F(FlashStoreTest, KeepsWhatWasWrittenAndNotBefore) {
    open();
    type("HCA", "21");
    down();
    store(nullptr);
    bus.replies["STORE"] = "OK ";
    store("Error setting flash!");
    EXPECT_TRUE(saysNotStored());
    open();
    EXPECT_TRUE(saysNotStored()) << "the device's matter, not the screen's";
    bus.replies["STORE"] = "OK";
    store("Store to Flash done!");
    EXPECT_FALSE(saysNotStored());
    type("HCA", "22");
    down();
    bus.silentAt = "STORE";
    store("No Reply to Command: STORE");
    EXPECT_EQ(waits.slept.count(), 3 * 200);
    bus.silentAt.reset();
    bus.replies["HCA"] = "22";
    open();
    type("HCA", "20");
    down();
    EXPECT_TRUE(saysNotStored()) << "flash may hold 22 by now";
}

TEST_F(FlashStoreTest, IsAskedForOnlyByWhatChanged) {
    const std::string unchanged = "Nothing was changed: the controller had these values already.";
    open();
    down();
    EXPECT_FALSE(saysNotStored());
    EXPECT_EQ(shown("outcome"), unchanged);
    type("LCA", "11");
    down();
    bus.replies["LCA"] = "11";
    EXPECT_EQ(shown("outcome"), "");
    EXPECT_EQ(compared(), "LCA\t11\t11\t10\t\n") << "the next power-up brings the old one back";
    down();
    EXPECT_EQ(shown("outcome"), unchanged);
    EXPECT_TRUE(saysNotStored());
    type("LCA", "10");
    down();
    EXPECT_FALSE(saysNotStored()) << "flash holds it";

    bus.replies["LCA"] = "10";
    bus.silentAt = "LCA=10";
    gate.expectMessage("No Reply to Command: LCA=10");
    commandsOf("DownloadPar");
    EXPECT_TRUE(saysNotStored()) << "nobody knows";
    EXPECT_EQ(mark("LCA"), State::unread);
}

}  // namespace
}  // namespace zlt::test
