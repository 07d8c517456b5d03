#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "simulator/Bus.h"

namespace zlt::sim {
namespace {

using namespace std::chrono_literals;

/// A bus and the answers that are through at once.
struct Unpaced {
    Bus bus{{Controller({.id = 1}), Controller({.id = 2, .nameInReplies = true}),
             Controller({.id = 3, .baud = 19200})},
            false};
    std::string ask(std::string_view bytes, long baud = 9600) {
        bus.receive(bytes, baud, 0ms);
        return bus.take(baud, 0ms);
    }
    void misbehave(std::string_view line) {
        bool known = false;
        EXPECT_EQ(bus.faults().apply(line, known), "") << line;
    }
};

TEST(Bus, AnswersTheRequestsAmongOtherBytes) {
    using namespace std::string_literals;
    const std::pair<std::string, std::string> table[] = {{"\0\xFF\r\n@01DN\r\n"s, "ZLD01\r"},
                                                         {"@01P@01DN\r", "ZLD01\r"},
                                                         {"@01DN\r@02DN\r", "ZLD01\r#02ZLD02\r"},
                                                         {"01DN\r@1DN\r@x1DN\r@\r@0\r@04DN\r", ""},
                                                         {"@03DN\r", ""},  // at another rate
                                                         {"@00EO=0\r", ""},
                                                         {"@01EO\r@02EO\r", "0\r#020\r"}};
    Unpaced line;
    for (const auto& [bytes, answer] : table)
        EXPECT_EQ(line.ask(bytes), answer) << bytes;
    EXPECT_EQ(line.ask("@03EO\r", 19200), "1\r") << "it could not hear the broadcast";
}

TEST(Bus, TakesTheTimeOfTheWire) {
    Bus bus({Controller({})}, true);
    constexpr Time byte = Time(1s) / 960;
    bus.receive("@01EO\r", 9600, 1s);
    EXPECT_EQ(bus.nextDue(), 1s + 7 * byte) << "six bytes there, one back";
    EXPECT_EQ(bus.take(9600, 1s + 7 * byte), "1");
    EXPECT_EQ(bus.take(9600, 1s + 8 * byte), "\r");
}

TEST(Bus, SpoilsTheAnswerByEachFaultInItsWay) {
    const std::pair<std::string, std::string> table[] = {
        {"silent", ""},
        {"empty on", "\r"},
        {"partial on", "ZLD"},
        {"stray \\xFF\\r\\\\", "ZLD01\r\xFF\r\\"},
        {"answer DN=he=llo", "he=llo\r"},
    };
    for (const auto& [fault, answer] : table) {
        Unpaced line;
        line.misbehave(fault);
        EXPECT_EQ(line.ask("@01DN\r"), answer) << fault;
        line.misbehave("normal");
        EXPECT_EQ(line.ask("@01DN\r"), "ZLD01\r") << "after " << fault;
    }
}

TEST(Bus, DelaysAndDripsByTheClock) {
    Unpaced line;
    line.misbehave("delay 150");
    line.misbehave("drip 80");
    EXPECT_EQ(line.ask("@01EO\r"), "");
    EXPECT_EQ(line.bus.take(9600, 149ms), "");
    EXPECT_EQ(line.bus.take(9600, 229ms), "1");
    EXPECT_EQ(line.bus.take(9600, 230ms), "\r");
}

TEST(Bus, SendsAnyByteAsGarbageWithAndWithoutAnEnd) {
    Unpaced line;
    line.misbehave("garbage on");
    std::string all;
    for (int i = 0; i < 500; ++i)
        all += line.ask("@01DN\r");
    const auto ended = std::count(all.begin(), all.end(), '\r');
    EXPECT_TRUE(ended > 100 && ended < 400) << ended;
    EXPECT_EQ(std::set<char>(all.begin(), all.end()).size(), 256U);
}

}  // namespace
}  // namespace zlt::sim
