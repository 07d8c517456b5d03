#include <gtest/gtest.h>

#include "link/Framing.h"
#include "link/ScreenLink.h"
#include "support/World.h"

namespace zlt::test {
namespace {

using namespace std::chrono_literals;

/// A link of one flavour, connected to controller 01 on port 3.
struct Linked : World, LinkListener {
    explicit Linked(const Flavour& flavour) : link(services, flavour, this) {
        link.connection = {{3}, "9600", "01"};
        link.openPort();
        link.PortReady = true;
        link.setCommOK(true);
    }
    void commChanged(bool connected) override { events += connected ? "+" : "-"; }
    void exchangeTimedOut() override { events += "timedOut "; }
    void portLost() override { events += "portLost "; }

    ScreenLink link;
    std::string events;
};

TEST(Framing, StripsExactlyThreeCharactersBehindAHash) {
    const std::pair<const char*, const char*> table[] = {
        {"#011500", "1500"}, {"#01", ""}, {"#", ""},          {"#0", ""},
        {"OK", "OK"},        {"", ""},    {"1#015", "1#015"}, {"###01", "01"}};
    for (const auto& [line, reply] : table)
        EXPECT_EQ(ReplyHeaderStrip(line), reply) << line;
}

TEST(Exchange, WritesOneFramedRequestAndReturnsTheReply) {
    Linked world(flavours::controlPanel);
    world.bus.replies["PX"] = "#011500";
    EXPECT_EQ(world.bus.openings, std::vector<std::string>{"3 9600,N,8,1"});
    EXPECT_EQ(world.link.SendReceive("PX"), "1500");
    EXPECT_EQ(world.bus.requests, std::vector<std::string>{"@01PX"});
    world.bus.replies["PX"] = "\xE9\xFF";
    EXPECT_EQ(world.link.SendReceive("PX"), "\xE9\xFF");
    world.bus.replies["PX"] = "";
    EXPECT_EQ(world.link.SendReceive("PX"), "");
}

TEST(Exchange, SettlesAsEachFlavourAndCommandAsk) {
    struct Row {
        const char* command;
        std::chrono::milliseconds panel, setup, variables, editor;
    };
    const Row table[] = {
        {"PX", 0ms, 0ms, 0ms, 50ms},         {"STORE", 200ms, 200ms, 0ms, 1000ms},
        {"STORE1", 0ms, 0ms, 0ms, 50ms},     {"store", 0ms, 0ms, 0ms, 50ms},
        {"DN", 0ms, 0ms, 0ms, 50ms},         {"DN=ZLD05", 200ms, 200ms, 0ms, 1000ms},
        {"ZH+", 200ms, 200ms, 0ms, 1000ms},  {"SR=1", 200ms, 1000ms, 0ms, 50ms},
        {"SR0=0", 200ms, 1000ms, 0ms, 50ms}, {"ZSR", 400ms, 1200ms, 0ms, 1000ms},
        {"XSR", 200ms, 1000ms, 0ms, 50ms},   {"ZSA84", 200ms, 200ms, 0ms, 2000ms},
        {"", 0ms, 0ms, 0ms, 50ms},
    };
    for (const Row& row : table) {
        const std::pair<const Flavour*, std::chrono::milliseconds> columns[] = {
            {&flavours::controlPanel, row.panel},
            {&flavours::parameterSetup, row.setup},
            {&flavours::variables, row.variables},
            {&flavours::secondThread, row.variables},
            {&flavours::programEditor, row.editor}};
        for (const auto& [flavour, wait] : columns) {
            Linked world(*flavour);
            world.link.SendReceive(row.command);
            EXPECT_EQ(world.waits.slept, wait) << row.command;
        }
    }
}

TEST(Exchange, TimesOutAtTheHundredAndFirstEmptyRead) {
    const auto afterEmptyReads = [](int count) {
        Linked world(flavours::controlPanel);
        world.bus.answer = [&](const std::string&) -> std::optional<std::string> {
            return std::string(static_cast<std::size_t>(count), '\0') + "55";
        };
        return world.link.SendReceive("PX");
    };
    EXPECT_EQ(afterEmptyReads(100), "55");
    EXPECT_EQ(afterEmptyReads(101), "0");

    Linked silent(flavours::controlPanel);
    silent.bus.silent = true;
    EXPECT_EQ(silent.link.SendReceive("PX"), "0");
    EXPECT_EQ(silent.bus.emptyReads, 101);
    EXPECT_FALSE(silent.link.CommOK());
    EXPECT_TRUE(silent.link.PortReady);
    EXPECT_EQ(silent.events, "+-timedOut ");
}

TEST(Exchange, WaitsForAReplyThatTricklesAndKeepsAPartFromBeingOne) {
    Linked world(flavours::controlPanel);
    const std::string gap(99, '\0');
    world.bus.feed("#" + gap + "0" + gap + "1" + gap + "-" + gap + "7" + gap + "\r");
    world.bus.silent = true;
    EXPECT_EQ(world.link.SendReceive("PX"), "-7");
    world.bus.feed("#01");
    EXPECT_EQ(world.link.SendReceive("PX"), "0");
}

TEST(Exchange, LetsLateCharactersHeadTheNextReply) {
    Linked world(flavours::controlPanel);
    world.bus.silent = true;
    world.bus.feed("late\r8");
    EXPECT_EQ(world.link.SendReceive("PX"), "late");
    world.bus.silent = false;
    world.bus.replies["EX"] = "00";
    EXPECT_EQ(world.link.SendReceive("EX"), "800");
}

TEST(Exchange, BoundsTheTextOfALineThatNeverEnds) {
    Linked world(flavours::controlPanel);
    world.bus.silent = true;
    world.bus.feed(std::string(200'000, 'A') + "\r");
    EXPECT_EQ(world.link.SendReceive("PX").size(), replyTextKept);
}

TEST(Exchange, TellsEachFailureInTheFlavoursWords) {
    const std::string notOpen = "Communication port not open!";
    const std::string noReplyPx = "No Reply to Command: PX";
    struct Row {
        const Flavour& flavour;
        std::string empty, timeOut, lost;
    };
    const Row table[] = {
        {flavours::parameterSetup, "No Response!", noReplyPx, notOpen},
        {flavours::variables, "No Response!", noReplyPx, noReplyPx},
        {flavours::secondThread, "No Response!", noReplyPx, notOpen},
    };
    for (const Row& row : table) {
        Linked empty(row.flavour);
        empty.bus.replies["PX"] = "#01";
        empty.bus.replies["SASTAT0"] = "";
        EXPECT_EQ(empty.link.SendReceive("SASTAT0"), "");
        empty.gate.expectMessage(row.empty);
        EXPECT_EQ(empty.link.SendReceive("PX"), "0");
        EXPECT_FALSE(empty.link.CommOK());

        Linked silent(row.flavour);
        silent.bus.silent = true;
        silent.gate.expectMessage(row.timeOut);
        EXPECT_EQ(silent.link.SendReceive("PX"), "0");
        EXPECT_TRUE(silent.link.PortReady);

        Linked lost(row.flavour);
        lost.bus.losesAtReadOf = "PX";
        lost.bus.silent = true;
        lost.gate.expectMessage(row.lost);
        EXPECT_EQ(lost.link.SendReceive("PX"), "0");
        EXPECT_FALSE(lost.link.PortReady);
        EXPECT_EQ(lost.link.SendReceive("PX"), "0") << "told once, then nothing is asked";
        EXPECT_EQ(lost.bus.requests.size(), 1U);
    }
}

TEST(Exchange, GoesOnAfterAFailureOnlyOnTheSecondThreadScreen) {
    const std::pair<const Flavour*, std::size_t> table[] = {
        {&flavours::parameterSetup, 1}, {&flavours::variables, 1}, {&flavours::secondThread, 2}};
    for (const auto& [flavour, requests] : table) {
        Linked world(*flavour);
        world.bus.silent = true;
        for (std::size_t told = 0; told < requests; ++told)
            world.gate.expectMessage("No Reply to Command: PX");
        world.link.SendReceive("PX");
        world.link.SendReceive("PX");
        EXPECT_EQ(world.bus.requests.size(), requests);
    }
}

TEST(Exchange, OfTheProgramEditorTakesWhatThereIsLessItsLastCharacter) {
    Linked world(flavours::programEditor);
    world.bus.feed("#01abc");
    EXPECT_EQ(world.link.SendReceive("SA1"), "#01abcOK");

    Linked silent(flavours::programEditor);
    silent.bus.silent = true;
    silent.gate.expectMessage("No ResponseSA1");
    EXPECT_THROW(silent.link.SendReceive("SA1"), ProgramEnd::Unwind);
    EXPECT_EQ(silent.programEnd.exitCode(), 1);
    EXPECT_EQ(silent.bus.emptyReads, 1);
}

TEST(Exchange, EndsTheProgramWhenThePanelLosesItsPort) {
    const auto loses = [](auto provoke) {
        Linked world(flavours::controlPanel);
        provoke(world);
        world.gate.expectMessage("Communication Error! Input/output error", [&] {
            EXPECT_TRUE(world.link.PortReady) << "the flags fall once the message is read";
        });
        world.gate.expectMessage(std::string(portNotAvailable), [&] {
            EXPECT_FALSE(world.link.PortReady);
            EXPECT_EQ(world.events, "+-portLost ");
        });
        EXPECT_THROW(world.link.SendReceive("PX"), ProgramEnd::Unwind);
        EXPECT_EQ(world.programEnd.exitCode(), 1);
        EXPECT_EQ(world.bus.portsOpen, 0);
    };
    loses([](Linked& world) { world.bus.losesAtWriteOf = "PX"; });
    loses([](Linked& world) { world.link.closePort(); });
    loses([](Linked& world) {
        world.bus.losesAtReadOf = "PX";
        world.bus.answer = [](const std::string&) { return std::nullopt; };
        world.bus.feed("12");
    });
}

}  // namespace
}  // namespace zlt::test
