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
        {id, "7", "DN=ZLD7", "OK ", "Error setting device ID", State::differs},
        {id, "07", "DN=ZLD07", {}, "No Reply to Command: DN=ZLD07", State::differs},
        {id, "07", no, "", "", State::same},
        {baud, " 57600.0", "DB=4", "OK", baudSet, State::same},
        {baud, "115200", "DB=5", "5", "Error setting baudrate.", State::differs},
        {baud, "9600", no, "", "", State::differs}};
    for (const auto& [name, typed, command, reply, message, after] : table) {
        SCOPED_TRACE(typed);
        bus.silentAt.reset();
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

TEST_F(DeviceChangesTest, AreLostAtPowerOffUntilStoredToFlash) {
    const auto store = [this](const char* message) {
        gate.expectQuestion("Store to Flash", "Are you sure you want to save parameters to flash?",
                            message);
        if (message)
            gate.expectMessage(message);
        EXPECT_EQ(commandsOf("SetSN"), message ? Commands{"STORE"} : Commands{});
    };
    open();
    EXPECT_EQ(shown("storeNote"), "");
    down();
    store(nullptr);
    bus.replies["STORE"] = "OK ";
    store("Error setting flash!");
    EXPECT_NE(shown("storeNote"), "");
    bus.replies["STORE"] = "OK";
    store("Store to Flash done!");
    EXPECT_EQ(shown("storeNote"), "");
    bus.silent = true;
    store("No Reply to Command: STORE");
    EXPECT_EQ(waits.slept.count(), 3 * 200);
}

}  // namespace
}  // namespace zlt::test
