#include <gtest/gtest.h>

#include "link/Values.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt {
namespace {

TEST(NumberConversion, ReadsWholeNumbersRoundedHalfToEven) {
    const std::pair<const char*, std::int32_t> table[] = {
        {"0", 0},
        {" 250", 250},
        {"250 ", 250},
        {"+7", 7},
        {"-0", 0},
        {"007", 7},
        {"1000.6", 1001},
        {"2.5", 2},
        {"3.5", 4},
        {"-2.5", -2},
        {"-3.5", -4},
        {"2.500", 2},
        {"2.5001", 3},
        {"2.49999999999", 2},
        {"0.5", 0},
        {"-0.6", -1},
        {"2147483647.4", 2147483647},
        {"2147483647", 2147483647},
        {"-2147483648", -2147483647 - 1},
        {"-2147483648.5", -2147483647 - 1},
    };
    for (const auto& [text, number] : table)
        EXPECT_EQ(parseInteger(text), number) << '"' << text << '"';
}

TEST(NumberConversion, RefusesEverythingElse) {
    const char* const table[] = {"",
                                 " ",
                                 "-",
                                 "+",
                                 "abc",
                                 "12abc",
                                 "1,5",
                                 "nan",
                                 "inf",
                                 "1e3",
                                 "0x10",
                                 "--1",
                                 "1 2",
                                 "1.",
                                 ".5",
                                 "1.2.3",
                                 "\t1",
                                 "1\n",
                                 "\xB2",
                                 "2147483648",
                                 "2147483647.5",
                                 "-2147483649",
                                 "99999999999999999999999999"};
    for (const char* text : table)
        EXPECT_EQ(parseInteger(text), std::nullopt) << '"' << text << '"';
    EXPECT_EQ(parseInteger(std::string_view("1\0", 2)), std::nullopt);
}

TEST(NumberConversion, NamesCommandAndReply) {
    try {
        replyToInteger("MST", "caf\xE9");
        FAIL() << "no conversion failure";
    } catch (const ConversionError& error) {
        EXPECT_STREQ(error.what(), "The reply to the command MST is not a number: \"caf\xC3\xA9\"");
    }
}

TEST(NumberConversion, QuotesOnlyTheFrontOfALongText) {
    EXPECT_EQ(inQuotes(std::string(80, 'x')), '"' + std::string(80, 'x') + '"');
    EXPECT_EQ(inQuotes(std::string(79, 'x') + "\xC3\xA9"),
              '"' + std::string(79, 'x') + "\xE2\x80\xA6\"");
}

TEST(FirmwareVersion, IsTheSecondToFourthCharacter) {
    EXPECT_EQ(firmwareVersion("VER", "V315").number, 315);
    EXPECT_EQ(firmwareVersion("VER", "X3229").number, 322);
    EXPECT_EQ(firmwareVersion("VER", "V31").number, 31);
    EXPECT_EQ(firmwareVersion("VER", "315").number, 15);
    for (const char* text : {"", "V", "0", "???", "Vabc"})
        EXPECT_THROW(firmwareVersion("VER", text), ConversionError) << text;
}

}  // namespace
}  // namespace zlt
