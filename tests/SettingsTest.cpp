#include <gtest/gtest.h>

#include "link/Settings.h"
#include "link/Values.h"

namespace zlt {
namespace {

TEST(Settings, FallBackAsFarAsTheFileGoes) {
    struct Row {
        std::optional<std::string> file;
        const char *port, *baud, *deviceId;
    };
    const Row table[] = {
        {std::nullopt, "COM1", "9600", "01"},
        {"", "COM1", "9600", "01"},
        {"COM3\r\n", "COM1", "9600", "01"},
        {"COM3\r\n19200\r\n", "COM1", "19200", "01"},
        {"COM3\r\n19200\r\n07\r\n", "COM3", "19200", "07"},
        {"COM3\n19200\n07", "COM3", "19200", "07"},
        {"COM3\r19200\r07\rmore\r", "COM3", "19200", "07"},
        {" COM3 \r\n\r\n\r\n", " COM3 ", "", ""},
        {"\xFF\xFE\r\nabc\xE9\r\n\x01", "\xFF\xFE", "abc\xE9", "\x01"},
    };
    for (const Row& row : table) {
        const Settings settings = readSettings(row.file);
        EXPECT_EQ(settings.port, row.port);
        EXPECT_EQ(settings.baud, row.baud);
        EXPECT_EQ(settings.deviceId, row.deviceId);
    }
}

TEST(Settings, AreThreeLinesAsTheyStand) {
    EXPECT_EQ(settingsFileText({"COM12", " 9600", ""}), "COM12\r\n 9600\r\n\r\n");
}

TEST(PortNumber, IsReadByTheEndOfThePortText) {
    const std::pair<const char*, int> table[] = {
        {"COM1", 1},  {"COM9", 9},  {"COM10", 10}, {"COM12", 12},       {"COM15", 15},
        {"COM16", 6}, {"com12", 2}, {"COM12 ", 0}, {"COM012", 2},       {"7", 7},
        {"COM0", 0},  {"", 0},      {"COM", 0},    {"/dev/ttyUSB3", 3}, {"COM\xB2", 0}};
    for (const auto& [text, number] : table)
        EXPECT_EQ(portNumberFromText(text).value, number) << text;
}

}  // namespace
}  // namespace zlt
