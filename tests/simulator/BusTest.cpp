#include <gtest/gtest.h>

#include <random>
#include <string>

#include "simulator/Bus.h"

namespace zlt::sim {
namespace {

using namespace std::chrono_literals;

Bus unpacedBus(std::vector<ControllerSetup> setups = {{}}) {
    return {{setups.begin(), setups.end()}, false};
}

std::string ask(Bus& bus, std::string_view bytes, long baud = 9600) {
    bus.receive(bytes, baud, 0ms);
    return bus.take(baud, 0ms);
}

TEST(Bus, findsRequestsAmongOtherBytes) {
    using namespace std::string_literals;
    const std::string overlong = "@01" + std::string(300, 'x') + "\r";
    for (const auto& [bytes, answer] :
         std::vector<std::pair<std::string, std::string>>{{"@01DN\r", "ZLD01\r"},
                                                          {"\0\xFF\r\n@01DN\r\n"s, "ZLD01\r"},
                                                          {"@01P@01DN\r", "ZLD01\r"},
                                                          {"@01DN\r@01EO\r", "ZLD01\r1\r"},
                                                          {"01DN\r", ""},
                                                          {"@1DN\r", ""},
                                                          {"@x1DN\r@\r@0\r", ""},
                                                          {"@02DN\r", ""},
                                                          {"@01\r", "?\r"},
                                                          {overlong, ""},
                                                          {overlong + "@01DN\r", "ZLD01\r"}}) {
        Bus bus = unpacedBus();
        EXPECT_EQ(ask(bus, bytes), answer) << bytes;
    }
}

TEST(Bus, onlyTheAddressedControllerAtItsOwnRateAnswers) {
    Bus bus = unpacedBus({{.id = 1}, {.id = 2, .nameInReplies = true}, {.id = 3, .baud = 19200}});
    EXPECT_EQ(ask(bus, "@02DN\r"), "#02ZLD02\r");
    EXPECT_EQ(ask(bus, "@03DN\r"), "");
    EXPECT_EQ(ask(bus, "@03DN\r", 19200), "ZLD03\r");
    EXPECT_EQ(ask(bus, "@00EO=0\r"), "") << "nobody answers a broadcast";
    EXPECT_EQ(ask(bus, "@01EO\r@02EO\r"), "0\r#020\r");
    EXPECT_EQ(ask(bus, "@03EO\r", 19200), "1\r") << "it could not hear it";
}

TEST(Bus, bytesTakeTheirTimeOnTheWire) {
    Bus bus({Controller({})}, true);
    constexpr Time kByte = Time(1s) / 960;
    bus.receive("@01EO\r", 9600, 1s);
    EXPECT_EQ(bus.nextDue(), 1s + 7 * kByte) << "six bytes there, one back";
    EXPECT_EQ(bus.take(9600, 1s + 7 * kByte - 1ns), "");
    EXPECT_EQ(bus.take(9600, 1s + 7 * kByte), "1");
    EXPECT_EQ(bus.take(9600, 1s + 8 * kByte), "\r");
    EXPECT_FALSE(bus.nextDue());
    bus.receive(std::string(1000, 'x'), 9600, 2s);
    EXPECT_TRUE(bus.deafUntil(2s)) << "a flood is held up";
    EXPECT_FALSE(bus.deafUntil(3s));
}

TEST(Bus, eachFaultSpoilsTheAnswerInItsWay) {
    for (const auto& [fault, answer] :
         std::vector<std::pair<std::string, std::string>>{{"silent", ""},
                                                          {"empty on", "\r"},
                                                          {"partial on", "ZLD"},
                                                          {"stray \\xFF\\r", "ZLD01\r\xFF\r"},
                                                          {"answer DN=he=llo", "he=llo\r"},
                                                          {"answer EO=1->x", "ZLD01\r"}}) {
        Bus bus = unpacedBus();
        bool known = false;
        EXPECT_EQ(bus.faults().apply(fault, known), "");
        EXPECT_TRUE(known);
        EXPECT_EQ(ask(bus, "@01DN\r"), answer) << fault;
        bus.faults().apply("normal", known);
        EXPECT_EQ(ask(bus, "@01DN\r"), "ZLD01\r") << "after " << fault;
    }
}

TEST(Bus, delayDripAndBabbleAreMatterOfTime) {
    Bus bus = unpacedBus();
    bool known = false;
    bus.faults().apply("delay 150", known);
    bus.faults().apply("drip 80", known);
    bus.receive("@01EO\r", 9600, 0ms);
    EXPECT_EQ(bus.take(9600, 149ms), "");
    EXPECT_EQ(bus.take(9600, 150ms), "1");
    EXPECT_EQ(bus.take(9600, 229ms), "");
    EXPECT_EQ(bus.take(9600, 230ms), "\r");
    bus.faults().apply("normal", known);
    bus.faults().apply("babble on", known);
    std::string babble;
    for (Time now = 1s; now < 1100ms; now += 100us) {
        babble += bus.take(115200, now);
    }
    EXPECT_GT(babble.size(), 200U);
    EXPECT_EQ(babble.find('\r'), std::string::npos);
}

TEST(Bus, garbageComesWithAndWithoutAnEndAndWithAnyByte) {
    Bus bus = unpacedBus();
    bool known = false;
    bus.faults().apply("garbage on", known);
    int ended = 0;
    std::string all;
    for (int i = 0; i < 500; ++i) {
        const std::string answer = ask(bus, "@01DN\r");
        ended += answer.ends_with('\r') ? 1 : 0;
        all += answer;
    }
    EXPECT_GT(ended, 100);
    EXPECT_LT(ended, 400);
    EXPECT_NE(all.find('\0'), std::string::npos);
    EXPECT_NE(all.find('\xFE'), std::string::npos);
}

TEST(Bus, aClientThatNeverListensCostsBoundedMemory) {
    Bus bus({Controller({})}, true);
    for (int i = 0; i < 20000; ++i) {
        bus.receive("@01DN\r", 9600, 0ms);
    }
    EXPECT_LE(bus.take(9600, 24h).size(), 65536U);
}

TEST(Bus, randomInputNeverBreaksIt) {
    std::mt19937 random{7};
    const std::string pieces = "@01JHLZXSRVDO+-=0123456789\r";
    Bus bus = unpacedBus();
    for (int i = 0; i < 20000; ++i) {
        std::string bytes = "@01";
        for (auto n = random() % 12; n > 0; --n) {
            bytes += random() % 20 == 0 ? static_cast<char>(random() & 0xFFU)
                                        : pieces[random() % pieces.size()];
        }
        bus.receive(bytes + "\r", 9600, i * 1ms);
        const std::string answer = bus.take(9600, i * 1ms);
        EXPECT_EQ(answer.find('\0'), std::string::npos);
    }
    bus.receive("\r@01ID\r", 9600, 21s);
    EXPECT_EQ(bus.take(9600, 21s).substr(0, 1).find_first_not_of("ZL#?"), std::string::npos);
}

}  // namespace
}  // namespace zlt::sim
