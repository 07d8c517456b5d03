#include <gtest/gtest.h>

#include "link/Exchange.h"
#include "link/ScreenLink.h"
#include "support/World.h"

namespace zlt::test {
namespace {

/// A link of one flavour, connected to controller 01 on port 3.
struct Linked : World {
    explicit Linked(const Flavour& flavour) : link(services, flavour, nullptr) {
        link.connection = {{3}, "9600", "01"};
        link.openPort();
        link.setPortReady(true);
        link.setCommOK(true);
    }

    ScreenLink link;
};

TEST(Exchange, WritesOneFramedRequestAndStripsTheReplysHeader) {
    Linked world(flavours::controlPanel);
    const std::pair<const char*, const char*> table[] = {
        {"#0115", "15"}, {"#01", ""},        {"#0", ""},    {"OK", "OK"},
        {"", ""},        {"1#015", "1#015"}, {"##01", "1"}, {"\xE9", "\xE9"}};
    for (const auto& [line, reply] : table) {
        world.bus.replies["PX"] = line;
        EXPECT_EQ(world.link.SendReceive("PX"), reply);
    }
    EXPECT_EQ(world.bus.openings, std::vector<std::string>{"3 9600"});
    EXPECT_EQ(world.bus.requests, std::vector<std::string>(std::size(table), "@01PX"));
}

TEST(Exchange, SettlesAsEachFlavourAndCommandAsk) {
    struct Row {
        const char* command;
        int panel, setup, variables, editor;
    };
    const Row table[] = {{"PX", 0, 0, 0, 50},          {"STORE", 200, 200, 0, 1000},
                         {"STORE1", 0, 0, 0, 50},      {"DN", 0, 0, 0, 50},
                         {"DN=01", 200, 200, 0, 1000}, {"ZH+", 200, 200, 0, 1000},
                         {"SR0=0", 200, 1000, 0, 50},  {"ZSR", 400, 1200, 0, 1000},
                         {"XSR", 200, 1000, 0, 50},    {"ZSA84", 200, 200, 0, 2000}};
    for (const Row& row : table) {
        const std::pair<const Flavour&, int> columns[] = {{flavours::controlPanel, row.panel},
                                                          {flavours::parameterSetup, row.setup},
                                                          {flavours::variables, row.variables},
                                                          {flavours::secondThread, row.variables},
                                                          {flavours::programEditor, row.editor}};
        for (const auto& [flavour, wait] : columns) {
            Linked world(flavour);
            world.link.SendReceive(row.command);
            EXPECT_EQ(world.waits.slept.count(), wait) << row.command;
        }
    }
}

TEST(Exchange, CountsTheEmptyReadsSinceTheLastCharacter) {
    const std::string gap(100, '\0');
    struct Row {
        const char* what;
        std::string input, reply;
        int emptyReads;
    };
    const Row table[] = {
        {"silence", "", "0", 101},
        {"a trickling reply", "#" + gap + "0" + gap + "1" + gap + "-7" + gap + "\r", "-7", 400},
        {"one empty read too many", gap + std::string(1, '\0') + "55\r", "0", 101},
        {"a part of a reply", "#01", "0", 101},
        {"two replies", "late\r8", "late", 0},
        {"a line without end", std::string(200'000, 'A') + "\r", std::string(replyTextKept, 'A'),
         0}};
    for (const Row& row : table) {
        Linked world(flavours::controlPanel);
        world.bus.silent = true;
        world.bus.feed(row.input);
        EXPECT_EQ(world.link.SendReceive("PX"), row.reply) << row.what;
        EXPECT_EQ(world.bus.emptyReads, row.emptyReads) << row.what;
        EXPECT_EQ(world.link.CommOK(), row.reply != "0") << row.what;
        EXPECT_TRUE(world.link.PortReady());
    }
}

TEST(Exchange, TellsEachFailureInTheFlavoursWords) {
    const std::string notOpen = "Communication port not open!", noReply = "No Reply to Command: PX";
    struct Row {
        const Flavour& flavour;
        std::string lost;
        bool goesOn;
    };
    const Row table[] = {{flavours::parameterSetup, notOpen, false},
                         {flavours::variables, noReply, false},
                         {flavours::secondThread, notOpen, true}};
    for (const auto& [flavour, lossTold, goesOn] : table) {
        Linked empty(flavour);
        empty.bus.replies = {{"PX", "#01"}, {"SASTAT0", ""}, {"SA7", ""}};
        EXPECT_EQ(empty.link.SendReceive("SASTAT0") + empty.link.SendReceive("SA7"), "");
        empty.gate.expectMessage("No Response!");
        EXPECT_EQ(empty.link.SendReceive("PX"), "0");
        EXPECT_FALSE(empty.link.CommOK());

        Linked silent(flavour);
        silent.bus.silent = true;
        for (int told = 0; told < (goesOn ? 2 : 1); ++told)
            silent.gate.expectMessage(noReply);
        EXPECT_EQ(silent.link.SendReceive("PX") + silent.link.SendReceive("PX"), "00");
        EXPECT_EQ(silent.bus.requests.size(), goesOn ? 2U : 1U);
        EXPECT_TRUE(silent.link.PortReady());

        Linked lost(flavour);
        lost.bus.losesAtReadOf = "PX";
        lost.bus.silent = true;
        lost.gate.expectMessage(lossTold);
        EXPECT_EQ(lost.link.SendReceive("PX") + lost.link.SendReceive("PX"), "00");
        EXPECT_EQ(lost.bus.requests.size(), 1U) << "told once, then nothing is asked";
        EXPECT_FALSE(lost.link.PortReady());
    }

    Linked several(flavours::secondThread);
    several.bus.losesAtReadOf = "PX";
    several.bus.silent = true;
    several.gate.expectMessage(notOpen);
    several.link.sendAll({"PX", "EX"});
    EXPECT_EQ(several.bus.requests.size(), 1U);
}

TEST(Exchange, OfTheProgramEditorTakesWhatThereIsLessItsLastCharacter) {
    Linked world(flavours::programEditor);
    EXPECT_EQ(world.link.SendReceive("SA1"), "OK");

    world.bus.silent = true;
    world.gate.expectMessage("No ResponseSA1");
    EXPECT_THROW(world.link.SendReceive("SA1"), ProgramEnd::Unwind);
    EXPECT_EQ(world.programEnd.exitCode(), 1);
    EXPECT_EQ(world.bus.emptyReads, 2) << "each reply ends at the first";
}

TEST(Exchange, EndsTheProgramWhenThePanelLosesItsPort) {
    const std::function<void(Linked&)> table[] = {
        [](Linked& world) { world.bus.losesAtWriteOf = "PX"; },
        [](Linked& world) { world.link.closePort(); },
        [](Linked& world) {
            world.bus.losesAtReadOf = "PX";
            world.bus.silent = true;
            world.bus.feed("12");
        }};
    for (const auto& provoke : table) {
        Linked world(flavours::controlPanel);
        provoke(world);
        world.gate.expectMessage("Communication Error! Input/output error", [&] {
            EXPECT_TRUE(world.link.PortReady()) << "until it is read";
        });
        world.gate.expectMessage(std::string(portNotAvailable),
                                 [&] { EXPECT_FALSE(world.link.PortReady()); });
        EXPECT_THROW(world.link.SendReceive("PX"), ProgramEnd::Unwind);
        EXPECT_EQ(world.programEnd.exitCode(), 1);
        EXPECT_EQ(world.bus.portsOpen, 0);
    }
}

TEST(LineFault, IsSeenInTheReply) {
    using std::string_view_literals::operator""sv;
    const std::pair<std::string_view, LineFault> table[] = {{"@01DN", LineFault::echo},
                                                            {"\0ZLD01"sv, LineFault::zeroBytes},
                                                            {"", LineFault::none},
                                                            {"#01@01DN", LineFault::none},
                                                            {"@01DN1", LineFault::none}};
    for (const auto& [reply, fault] : table) {
        EXPECT_EQ(lineFaultIn("@01DN\r", reply), fault) << reply;
        EXPECT_EQ(lineFaultText(fault).empty(), fault == LineFault::none);
    }
}

}  // namespace
}  // namespace zlt::test
