// The changes that take effect at the next power-up: device ID, baud rate, flash store.

#include "SetupWorld.h"

namespace zlt::test {
namespace {

const char* const idSet =
    "Device ID Set.  Perform store to flash and reset power for new Device ID to take effect.";
const char* const baudSet =
    "Baudrate change done.  Store to flash, exit program, and reset power for new baudrate to "
    "take effect.";
const char* const baudQuestion = "Are you sure you want change the baudrate?";
const char* const storeQuestion = "Are you sure you want to save parameters to flash?";

class DeviceChangesTest : public SetupWorld {
 protected:
    Commands downWith(const Commands& idChange, const Commands& baudChange) {
        Commands all{"CURR=800", "CURI=300", "MS=16", "POL=5", "DN"};
        all.insert(all.end(), idChange.begin(), idChange.end());
        for (const char* command : {"DL=1", "SLOAD=3", "HCA=20", "LCA=10", "DOBOOT=6", "DB"})
            all.push_back(command);
        all.insert(all.end(), baudChange.begin(), baudChange.end());
        all.push_back("RT=1");
        return all;
    }
    static std::string idQuestion(const std::string& id) {
        return "Are you sure you want change Device ID to " + id + "?";
    }
};

TEST_F(DeviceChangesTest, ChangesTheDeviceIdOnYes) {
    struct Row {
        const char *id, *reply, *message;
    };
    const Row table[] = {{"07", "OK", idSet},
                         {"7", "OK ", "Error setting device ID"},
                         {"07", "ok", "Error setting device ID"},
                         {"", "OK", idSet}};
    for (const Row& row : table) {
        openRead();
        type("DeviceIDCombo", row.id);
        const std::string command = std::string("DN=ZLD") + row.id;
        bus.replies[command] = row.reply;
        gate.expectQuestion("Device ID", idQuestion(row.id), true);
        gate.expectMessage(row.message);
        gate.expectMessage("Download Done!");
        EXPECT_EQ(commandsOf("DownloadPar"), downWith({command}, {}));
        EXPECT_EQ(shown("DeviceIDCombo"), row.id);
        EXPECT_EQ(mark("DeviceIDCombo") == ChangeMark::State::same, row.reply == std::string("OK"));
    }
}

TEST_F(DeviceChangesTest, PutsTheControllersIdBackOnNo) {
    openRead();
    type("DeviceIDCombo", "07");
    bus.replies["DN"] = "ZLD55x";
    gate.expectQuestion("Device ID", idQuestion("07"), false);
    gate.expectMessage("Download Done!");
    EXPECT_EQ(commandsOf("DownloadPar"), downWith({}, {}));
    EXPECT_EQ(shown("DeviceIDCombo"), "55");
    EXPECT_EQ(mark("DeviceIDCombo"), ChangeMark::State::same);
}

TEST_F(DeviceChangesTest, ChangesTheBaudRateOnYes) {
    struct Row {
        const char *text, *command, *reply, *message;
    };
    const Row table[] = {{"9600", "DB=1", "OK", baudSet},
                         {"19200", "DB=2", "OK", baudSet},
                         {" 57600.0", "DB=4", "OK", baudSet},
                         {"115200", "DB=5", "5", "Error setting baudrate."}};
    for (const Row& row : table) {
        openRead();
        type("baudCombo", row.text);
        bus.replies[row.command] = row.reply;
        gate.expectQuestion("Device ID", baudQuestion, true);
        gate.expectMessage(row.message);
        gate.expectMessage("Download Done!");
        EXPECT_EQ(commandsOf("DownloadPar"), downWith({}, {row.command}));
    }
}

TEST_F(DeviceChangesTest, LeavesTheUnappliedBaudRateOnNo) {
    openRead();
    type("baudCombo", "9600");
    gate.expectQuestion("Device ID", baudQuestion, false);
    gate.expectMessage("Download Done!");
    EXPECT_EQ(commandsOf("DownloadPar"), downWith({}, {}));
    EXPECT_EQ(shown("baudCombo"), "9600");
    EXPECT_EQ(mark("baudCombo"), ChangeMark::State::differs);
}

TEST_F(DeviceChangesTest, ComparesTheWantedBaudRateAsANumberAndTheCurrentOneAsAText) {
    openRead();
    for (const char* unlisted : {"14400", "", "38400 baud"}) {
        type("baudCombo", unlisted);
        gate.expectMessage("Download Done!");
        EXPECT_EQ(commandsOf("DownloadPar"), downWith({}, {})) << unlisted;
    }
    type("baudCombo", "38400");
    for (const char* reply : {"3 ", "03", "?"}) {
        bus.replies["DB"] = reply;
        gate.expectQuestion("Device ID", baudQuestion, false);
        gate.expectMessage("Download Done!");
        EXPECT_EQ(commandsOf("DownloadPar"), downWith({}, {})) << reply;
    }
}

TEST_F(DeviceChangesTest, EndADownWhoseChangeIsNotAnswered) {
    openRead();
    type("DeviceIDCombo", "07");
    silence("DN=ZLD07");
    gate.expectQuestion("Device ID", idQuestion("07"), true);
    gate.expectMessage("No Reply to Command: DN=ZLD07");
    EXPECT_EQ(commandsOf("DownloadPar").back(), "DN=ZLD07");

    bus.answer = nullptr;
    openRead();
    type("baudCombo", "9600");
    bus.replies["DB=1"] = "";
    gate.expectQuestion("Device ID", baudQuestion, true);
    gate.expectMessage("No Response!");
    EXPECT_EQ(commandsOf("DownloadPar").back(), "DB=1");
}

TEST_F(DeviceChangesTest, StoreToFlash) {
    openRead();
    gate.expectQuestion("Store to Flash", storeQuestion, false);
    EXPECT_EQ(commandsOf("SetSN"), Commands{});
    for (const auto& [reply, message] : {std::pair{"OK", "Store to Flash done!"},
                                         {"OK ", "Error setting flash!"},
                                         {"?", "Error setting flash!"}}) {
        bus.replies["STORE"] = reply;
        gate.expectQuestion("Store to Flash", storeQuestion, true);
        gate.expectMessage(message);
        const auto before = waits.slept;
        EXPECT_EQ(commandsOf("SetSN"), Commands{"STORE"});
        EXPECT_EQ(waits.slept - before, std::chrono::milliseconds(200));
    }
    silence("STORE");
    gate.expectQuestion("Store to Flash", storeQuestion, true);
    gate.expectMessage("No Reply to Command: STORE");
    EXPECT_EQ(commandsOf("SetSN"), Commands{"STORE"});
}

TEST_F(DeviceChangesTest, TellWhatAPowerCycleWouldLose) {
    openRead();
    EXPECT_EQ(shown("storeNote"), "");
    gate.expectMessage("Download Done!");
    click(*form, "DownloadPar");
    EXPECT_NE(shown("storeNote"), "");
    for (const char* reply : {"?", "OK"}) {
        bus.replies["STORE"] = reply;
        gate.expectQuestion("Store to Flash", storeQuestion, true);
        gate.expectMessageWith(reply == std::string("OK") ? "done" : "Error");
        click(*form, "SetSN");
        EXPECT_EQ(shown("storeNote").empty(), reply == std::string("OK"));
    }
}

}  // namespace
}  // namespace zlt::test
