// The panel's state as the text that an operator sends to whoever is asked for help.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <ctime>

#include "panel/StateReport.h"
#include "support/PanelWorld.h"

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

Moment at(std::chrono::milliseconds time) {
    const std::chrono::sys_days day = std::chrono::year(2026) / 11 / 22;
    return {std::chrono::steady_clock::time_point(time), day + 14h + time};
}

TEST(StateReport, TellsEverythingWithItsAge) {
    qputenv("TZ", "UTC");
    ::tzset();
    StateReport report;
    report.now = at(2500ms);
    report.connection = {{3}, "9600", "01"};
    report.portDevice = "/dev/ttyUSB0";
    report.panel.link = LinkState::silent;
    report.panel.live = false;
    report.readOuts.note("Product", "ZLT-R-NX-42", at(0ms).steady);
    AxisReading reading;
    reading.current = "800";
    reading.position = "\x02-12";
    reading.encoder = "34";
    reading.status = StatusWord(0x21);
    reading.driverEnabled = true;
    reading.program = AxisReading::Program{true, false, 7, ProgramState::paused};
    report.readOuts.note(reading, at(1000ms).steady);
    reading.current = "900";
    reading.program->state.reset();  // a code that stands for none
    report.readOuts.note(reading, at(2499ms).steady);
    report.note.pendingId = "05";
    report.note.unstored = {{"Idle current", "300"}, {"DO Boot", std::nullopt}};
    BusRecord record;
    record.begun = at(2400ms).wall;
    record.taken = 1240us;
    record.port = 3;
    record.command.set("PX");
    record.outcome = Outcome::timedOut;
    report.exchanges = {record};

    const std::string text = stateText(report);
    const std::string heading = "State of the ZLT-R-NX-42 panel, 2026-11-22 14:00:02.500\n\n";
    EXPECT_EQ(text.substr(0, heading.size()), heading);
    for (const char* part :
         {", GUI Version: V315\nPort            COM3\nBehind it       /dev/ttyUSB0\n"
          "Baud rate       9600\nDevice          01\nLink            No Communication\n\n",
          "\n\nRead-outs, as last read; not live now\n"
          "Product         ZLT-R-NX-42   2.500 s ago\n"
          "Current         900           0.001 s ago\n"
          "Position        <STX>-12      0.001 s ago\n",
          "Status          MOVING        0.001 s ago\n-Lim            off           0.001 s ago\n"
          "Home            on            0.001 s ago\n+Lim            off           0.001 s ago\n"
          "Driver          on            0.001 s ago\nMove mode       INC           0.001 s ago\n"
          "Output          off           0.001 s ago\nProgram line    7             0.001 s ago\n"
          "Program         Paused        1.500 s ago\n\n",
          "\n\nWritten and not stored to flash\nDO Boot         the stored value is not known\n"
          "Idle current    the next power-up brings back 300\nNext power-up   ID 05\n\n",
          "\nThe last 1 exchanges, the poll's among them\nTime  ",
          "\n2026-11-22 14:00:02.400  COM3 ", " 1.24 ms     TIME-OUT\n",
          "\n\nThe last 0 exchanges without the poll's that were answered\nTime "})
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n--- in\n" << text;
}

TEST(StateReport, IsCopiedByOneButtonWithNothingSent) {
    PanelWorld world;
    world.load();
    world.sentByTick();
    world.bus.silentAt = "EX";
    world.sentByTick();
    EXPECT_EQ(world.sentBy("CopyState"), "");
    const std::string text = QGuiApplication::clipboard()->text().toStdString();
    // The zero of the time-out is no value of the encoder's.
    for (const char* part :
         {"Link            No Communication\n", "Encoder         34  ",
          "Product         ZLT-R-NX-42", "Firmware        V322", "nothing that the panel knows of",
          "The last 24 exchanges, the poll's", "poll      EX       ", "TIME-OUT"})
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n--- in\n" << text;
}

}  // namespace
}  // namespace zlt::test
