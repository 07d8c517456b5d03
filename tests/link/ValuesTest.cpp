// What texts of the operator, the controller and the settings file are read as.

#include <gtest/gtest.h>

#include <limits>

#include "link/Settings.h"
#include "link/Values.h"
#include "platform/NumberConversion.h"

namespace zlt {
namespace {

TEST(NumberConversion, ReadsWholeNumbersRoundedHalfToEven) {
    const std::pair<const char*, std::int32_t> table[] = {
        {"0", 0},     {" 25 ", 25}, {"+7", 7},  {"-0", 0},    {"007", 7},
        {"10.6", 11}, {"2.5", 2},   {"3.5", 4}, {"-2.5", -2}, {"-3.5", -4},
        {"2.500", 2}, {"2.501", 3}, {"0.5", 0}, {"-0.6", -1}};
    for (const auto& [text, number] : table)
        EXPECT_EQ(parseInteger(text), number) << '"' << text << '"';
    EXPECT_EQ(parseInteger("2147483647.4"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(parseInteger("-2147483648.5"), std::numeric_limits<std::int32_t>::min());
}

TEST(NumberConversion, RefusesEverythingElse) {
    const char* const table[] = {"",    " ",   "-",     "abc",  "12abc", "1,5",
                                 "nan", "inf", "1e3",   "0x10", "--1",   "1 2",
                                 "1.",  ".5",  "1.2.3", "\t1",  "1\n",   "\xB2"};
    for (const char* text : table)
        EXPECT_EQ(parseInteger(text), std::nullopt) << '"' << text << '"';
    for (const char* text : {"2147483648", "2147483647.5", "-2147483649", "99999999999999999999"})
        EXPECT_EQ(parseInteger(text), std::nullopt) << text;
    EXPECT_EQ(parseInteger(std::string_view("1\0", 2)), std::nullopt);
}

TEST(NumberConversion, NamesCommandAndTheFrontOfTheReply) {
    const auto messageOf = [](const std::string& reply) -> std::string {
        try {
            return std::to_string(replyToInteger("MST", reply));
        } catch (const ConversionError& error) {
            return error.what();
        }
    };
    const std::string words = "The reply to the command MST is not a number: \"";
    EXPECT_EQ(messageOf("caf\xE9"), words + "caf\u00E9\"");
    EXPECT_EQ(messageOf(std::string(79, 'x') + "\xE9"), words + std::string(79, 'x') + "\u2026\"");
}

TEST(Settings, FallBackAsFarAsTheFileGoes) {
    struct Row {
        std::optional<std::string> file;
        const char* writtenAgain;
    };
    const Row table[] = {{std::nullopt, "COM1\r\n9600\r\n01\r\n"},
                         {"", "COM1\r\n9600\r\n01\r\n"},
                         {"COM3\r\n", "COM1\r\n9600\r\n01\r\n"},
                         {"COM3\r\n19200\r\n", "COM1\r\n19200\r\n01\r\n"},
                         {"COM3\n19200\n07", "COM3\r\n19200\r\n07\r\n"},
                         {"COM3\r19200\r07\rmore\r", "COM3\r\n19200\r\n07\r\n"},
                         {" COM3 \r\n\r\n\r\n", " COM3 \r\n\r\n\r\n"},
                         {"\xFF\xFE\r\nabc\xE9\r\n\x01", "\xFF\xFE\r\nabc\xE9\r\n\x01\r\n"}};
    for (const auto& [file, writtenAgain] : table)
        EXPECT_EQ(settingsFileText(readSettings(file)), writtenAgain);
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
