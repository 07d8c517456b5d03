#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/Options.h"
#include "simulator/Text.h"

namespace zlt::sim {
namespace {

TEST(Options, withoutAnyThereIsOneController) {
    const Options options = parseOptions({});
    ASSERT_EQ(options.ports.size(), 1U);
    EXPECT_EQ(options.ports[0].name, "COM1");
    EXPECT_EQ(options.ports[0].controllers.size(), 1U);
    EXPECT_TRUE(options.ports[0].paced);
}

TEST(Options, belongToTheLastPortNamed) {
    const Options options =
        parseOptions({"--port", "COM3", "--controller", "7,firmware=315,baud=38400,limits=-5:9",
                      "--controller", "id=8,rt=1", "--unpaced", "--port", "COM4", "--fault",
                      "delay 20", "--link", "/x", "--until-stdin-closes"});
    ASSERT_EQ(options.ports.size(), 2U);
    const auto& first = options.ports[0];
    ASSERT_EQ(first.controllers.size(), 2U);
    EXPECT_EQ(first.controllers[0].id, 7);
    EXPECT_EQ(first.controllers[0].firmware, 315);
    EXPECT_EQ(first.controllers[0].baud, 38400);
    EXPECT_EQ(first.controllers[0].layout.negativeLimit, -5);
    EXPECT_TRUE(first.controllers[1].nameInReplies);
    EXPECT_FALSE(first.paced);
    EXPECT_TRUE(options.ports[1].paced);
    EXPECT_EQ(options.ports[1].link, "/x");
    EXPECT_EQ(options.ports[1].faults, std::vector<std::string>{"delay 20"});
    EXPECT_TRUE(options.untilInputCloses);
}

TEST(Options, refusesWhatItCannotMean) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"--nonsense"},
                                               {"--link"},
                                               {"--port", ""},
                                               {"--port", "A", "--port", "A"},
                                               {"--controller", "id=0"},
                                               {"--controller", "id=100"},
                                               {"--controller", "id=x"},
                                               {"--controller", "baud=14400"},
                                               {"--controller", "product=ZLD1"},
                                               {"--controller", "limits=5"},
                                               {"--controller", "limits=5:-5"},
                                               {"--controller", "colour=red"}}) {
        EXPECT_THROW(parseOptions(arguments), std::invalid_argument) << arguments.back();
    }
}

TEST(Text, escapesAndBack) {
    const std::string bytes("\0a\\\r\n\xFF", 6);
    EXPECT_EQ(escaped(bytes), "\\x00a\\\\\\r\\x0A\\xFF");
    EXPECT_EQ(unescaped(escaped(bytes)), bytes);
    EXPECT_EQ(unescaped("\\q\\x1\\"), "\\q\\x1\\") << "no escape, no change";
}

}  // namespace
}  // namespace zlt::sim
