// What each command sends, prints and ends with, over a scripted controller.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ctl/Run.h"
#include "platform_qt/QtFiles.h"
#include "support/ScriptedBus.h"

namespace zlt::ctl {
namespace {

using test::CountedWaits;
using test::ScriptedBus;

class ScriptedConsole final : public Console {
 public:
    int signalCaught() override { return signal; }
    void pause(std::chrono::milliseconds) override {
        if (atPause)
            atPause();
    }
    std::optional<std::string> readLine(std::string_view) override {
        std::string line;
        return std::getline(input, line) ? std::optional(line) : std::nullopt;
    }

    int signal = 0;
    std::function<void()> atPause;
    std::istringstream input;
};

class NoHelp final : public HelpViewer {
    void openContents(const std::filesystem::path&) override {}
};
class NoTools final : public Processes {
    ProcessEnd runAndWait(const std::filesystem::path&, const Started&) override { return {}; }
};

class ZltctlCommand : public ::testing::Test {
 protected:
    ZltctlCommand() : m_before(std::filesystem::current_path()) {
        std::filesystem::current_path(m_folder.path().toStdString());
        bus.replies = {{"DN", "ZLD01"}, {"VER", "V322"}, {"CUR", "800"},  {"PX", "-12"},
                       {"EX", "34"},    {"MST", "0"},    {"EO", "1"},     {"MM", "0"},
                       {"DO", "0"},     {"SPC", "7"},    {"SASTAT", "1"}, {"POL", "0"},
                       {"CURR", "9"},   {"CURI", "8"},   {"MS", "16"},    {"DB", "1"},
                       {"RT", "0"},     {"DL", "0"},     {"SLOAD", "0"},  {"LCA", "1"},
                       {"HCA", "2"},    {"DOBOOT", "3"}};
    }
    ~ZltctlCommand() override { std::filesystem::current_path(m_before); }

    /// Runs a command line, split at blanks; returns its exit code.
    int run(const std::string& line) {
        results.str({});
        errors.str({});
        std::istringstream words(line);
        std::vector<std::string> texts;
        for (std::string word; words >> word;)
            texts.push_back(word);
        ProgramEnd programEnd;
        CommandGate gate;
        Output output(results, errors);
        const Services services{.gate = gate,
                                .waits = waits,
                                .files = files,
                                .help = m_help,
                                .programEnd = programEnd,
                                .processes = m_tools,
                                .ownFolder = m_folder.path().toStdString(),
                                .makePort = [this] { return bus.makePort(); }};
        PortDirectory directory{portListFileName};
        const int code = ctl::run({services, gate, directory, console, output}, texts);
        EXPECT_EQ(bus.portsOpen, 0) << line;
        return code;
    }
    /// The commands that went out since the last call, with bars between.
    std::string sent() {
        std::string commands;
        for (const std::string& command : bus.takeCommands())
            commands += (commands.empty() ? "" : "|") + command;
        return commands;
    }

    ScriptedBus bus;
    ScriptedConsole console;
    CountedWaits waits;
    QtFiles files;
    std::ostringstream results, errors;

 private:
    QTemporaryDir m_folder;
    std::filesystem::path m_before;
    NoHelp m_help;
    NoTools m_tools;
};

TEST_F(ZltctlCommand, SendsThePanelsSequences) {
    struct Row {
        const char* line;
        const char* commands;
    };
    for (const Row& row : {
             Row{"move -500", "DN|VER|X-500"},
             {"move 7 --speed 1000.6 --accel 20", "DN|VER|HSPD=1001|ACC=20|X7"},
             {"jog - --accel=5", "DN|VER|ACC=5|J-"},
             {"jog + --wait", "DN|VER|J+|MST|MST"},
             {"home -", "DN|VER|H-"},
             {"home HL+ --speed 9", "DN|VER|HSPD=9|HL+"},
             {"stop", "STOP"},
             {"abort", "ABORT"},
             {"--id 00 abort", "ABORT"},
             {"program stop", "SR=0|ABORT"},
             {"program run", "DN|VER|SR=1"},
             {"send PX -- STORE", "PX|STORE"},
             {"status", "DN|VER|CUR|PX|EX|MST|EO|MM|DO|SPC|SASTAT"},
         }) {
        EXPECT_EQ(run(row.line), 0) << row.line << errors.str();
        EXPECT_EQ(sent(), row.commands) << row.line;
        EXPECT_EQ(errors.str(), "") << row.line;
    }
    bus.replies["VER"] = "V316";
    EXPECT_EQ(run("status"), 0);
    EXPECT_EQ(sent(), "DN|VER|CUR|PX|EX|MST|EO");
    EXPECT_EQ(run("home L-"), 1);
    EXPECT_EQ(sent(), "DN|VER");
}

TEST_F(ZltctlCommand, TakesPortRateAndIdFromTheSettingsUnlessTold) {
    std::ofstream("zlt-r-485.ini") << "COM4\r\n19200\r\n07\r\n";
    run("send PX");
    EXPECT_EQ(bus.openings.back(), "4 19200");
    EXPECT_EQ(bus.requests.back(), "@07PX");
    run("--port com9 --baud 38400 --id 5 send PX");
    EXPECT_EQ(bus.openings.back(), "9 38400");
    EXPECT_EQ(bus.requests.back(), "@05PX");
    std::ofstream("zlt-r-485.ports") << "COM2=/dev/null\n";
    run("--port /dev/null send PX");
    EXPECT_EQ(bus.openings.back(), "2 19200");
    run("--port null send PX");
    EXPECT_EQ(bus.openings.back(), "2 19200");
    run("--port /dev/zero send PX");
    EXPECT_EQ(bus.openings.back(), "16 19200") << "a device that has no number";
}

TEST_F(ZltctlCommand, SendsNothingAfterWhatWentWrong) {
    struct Row {
        const char* line;
        std::function<void(ScriptedBus&)> fault;
        int code;
        const char* commands;
        const char* error;
    };
    const Row table[] = {
        {"move 5 --speed 9", [](auto& b) { b.replies["HSPD=9"] = "?HSPD=9"; }, 1, "DN|VER|HSPD=9",
         "zltctl: \"HSPD=9\" was refused: \"?HSPD=9\".\n"},
        {"move 5 --speed 9", [](auto& b) { b.silentAt = "HSPD=9"; }, 3, "DN|VER|HSPD=9",
         "zltctl: No reply from device 01 on COM1 at 9600 baud.\n"},
        {"move 5x", {}, 1, "DN|VER", nullptr},
        {"move 5 --speed fast", {}, 1, "DN|VER", nullptr},
        {"status", [](auto& b) { b.replies["PX"] = "1O"; }, 1, nullptr,
         "zltctl: The reply to the command PX is not a number: \"1O\"\n"},
        {"status", [](auto& b) { b.replies["DN"] = "MODEM"; }, 3, "DN", nullptr},
        {"status", [](auto& b) { b.replies["DN"] = "@01DN"; }, 3, "DN", nullptr},
        {"status", [](auto& b) { b.losesAtWriteOf = "PX"; }, 4, "DN|VER|CUR", nullptr},
        {"jog + --wait", [](auto& b) { b.replies["MST"] = "128"; }, 1, "DN|VER|J+|MST",
         "zltctl: The axis has met a limit: +LIM ERR.\n"},
        {"status", [](auto& b) { b.opens = false; }, 4, "", nullptr},
        {"--id 00 move 5", {}, 2, "", nullptr},
        {"--id x status", {}, 1, "", nullptr},
        {"--frob status", {}, 2, "", nullptr},
        {"move", {}, 2, "", nullptr},
        {"jog sideways", {}, 2, "DN|VER", nullptr},
        {"status --csv", {}, 2, "", nullptr},
        {"status --id keep", {}, 2, "", nullptr},
        {"frob", {}, 2, "", nullptr},
    };
    for (const Row& row : table) {
        const auto replies = bus.replies;
        if (row.fault)
            row.fault(bus);
        EXPECT_EQ(run(row.line), row.code) << row.line;
        const std::string commands = sent();
        EXPECT_EQ(commands, row.commands ? row.commands : commands) << row.line;
        EXPECT_EQ(results.str(), "") << row.line;
        EXPECT_TRUE(errors.str().starts_with("zltctl: ")) << row.line << errors.str();
        EXPECT_EQ(errors.str(), row.error ? row.error : errors.str());
        bus.replies = replies;
        bus.silentAt = bus.losesAtWriteOf = std::nullopt;
        bus.opens = true;
    }
}

TEST_F(ZltctlCommand, GetsAStopOutWhateverIsWrong) {
    EXPECT_EQ(run("abort --frob now"), 2);
    EXPECT_EQ(sent(), "ABORT");
    console.signal = 2;
    EXPECT_EQ(run("program stop"), 0);
    EXPECT_EQ(sent(), "SR=0|ABORT") << "a signal comes between no stop's commands";
    console.signal = 0;
    bus.silent = true;
    EXPECT_EQ(run("program stop"), 3);
    EXPECT_EQ(sent(), "SR=0|ABORT");
    EXPECT_EQ(run("abort"), 3);
    EXPECT_EQ(sent(), "ABORT");
}

TEST_F(ZltctlCommand, EndsBetweenTwoExchangesOnASignal) {
    bus.answer = [this](const std::string& request) {
        if (request == "@01EX")
            console.signal = 15;
        return bus.usualReply(request);
    };
    EXPECT_EQ(run("status"), 143);
    EXPECT_EQ(sent(), "DN|VER|CUR|PX|EX");
    EXPECT_EQ(errors.str(), "zltctl: Interrupted.\n");
}

TEST_F(ZltctlCommand, PrintsAValueALineOrJson) {
    EXPECT_EQ(run("status position motion program"), 0);
    EXPECT_EQ(results.str(), "-12\nIDLE\nRunning\n");
    EXPECT_EQ(run("--json status position driver"), 0);
    EXPECT_EQ(results.str(), "{\"position\":-12,\"driver\":1}\n");
    EXPECT_EQ(run("status speed"), 2);
    bus.replies["ID"] = "a\"\n\xB5";
    EXPECT_EQ(run("send ID"), 0);
    EXPECT_EQ(results.str(), "a\"?\xC2\xB5\n");
    EXPECT_EQ(run("send ID --json"), 0);
    EXPECT_EQ(results.str(), "{\"command\":\"ID\",\"reply\":\"a\\\"\\u000a\xC2\xB5\"}\n");
    console.input.str("PX\n\nFOO\nVER\n");
    bus.replies["FOO"] = "?FOO";
    EXPECT_EQ(run("send -"), 1);
    EXPECT_EQ(results.str(), "-12\n");
}

TEST_F(ZltctlCommand, WatchesUntilASignal) {
    int pauses = 0;
    console.atPause = [&] { console.signal = ++pauses == 2 ? 2 : 0; };
    EXPECT_EQ(run("watch --csv"), 130);
    std::istringstream lines(results.str());
    std::string head, first, second, none;
    EXPECT_TRUE(std::getline(lines, head) && std::getline(lines, first) &&
                std::getline(lines, second) && !std::getline(lines, none));
    EXPECT_EQ(head.substr(0, 26), "time,position,encoder,curr");
    EXPECT_NE(second.find(",-12,34,800,IDLE,0,0,0,1,ABS,0,7,Running"), std::string::npos);
    EXPECT_EQ(errors.str(), "");
}

TEST_F(ZltctlCommand, WritesParametersOnlyAsFarAsItWasTold) {
    ASSERT_EQ(run("parameters read set.par"), 0) << errors.str();
    EXPECT_EQ(run("parameters read set.par"), 1) << "it is there already";
    EXPECT_EQ(run("parameters read set.par --yes"), 0);
    EXPECT_EQ(run("parameters diff set.par"), 0) << results.str();
    sent();

    const auto written = [this] {
        std::string commands;
        for (const std::string& command : bus.takeCommands())
            if (command.find('=') != std::string::npos || command == "STORE")
                commands += command + "|";
        return commands;
    };
    bus.replies["DN"] = "ZLD04";
    bus.replies["CURR"] = "5";
    EXPECT_EQ(run("parameters diff set.par --id keep"), 1);
    EXPECT_EQ(results.str(), "Run current: controller 5, file 9\n");
    for (const char* line :
         {"parameters write set.par", "parameters write set.par --id from-file",
          "parameters write set.par --new-id 09", "parameters write none.par --id keep"}) {
        EXPECT_EQ(run(line), 1) << line;
        EXPECT_EQ(written(), "") << line << errors.str();
    }
    EXPECT_EQ(run("parameters write set.par --id keep --store"), 0) << errors.str();
    EXPECT_EQ(written().find("DN="), std::string::npos);
    bus.replies["STORE"] = "?STORE";
    EXPECT_EQ(run("parameters write set.par --id keep --store"), 1);
    EXPECT_EQ(errors.str().find("zltctl: Nothing was changed"), std::string::npos);
    bus.replies["CURI=8"] = "?CURI=8";
    written();
    EXPECT_EQ(run("parameters write set.par --id keep --store"), 1);
    EXPECT_NE(errors.str().find("Refused: idle current"), std::string::npos) << errors.str();
    EXPECT_EQ(written().find("STORE"), std::string::npos);
}

TEST_F(ZltctlCommand, LeavesAnIdThatIsTaken) {
    ASSERT_EQ(run("parameters read set.par"), 0);
    bool taken = true;
    bus.answer = [&](const std::string& request) -> std::optional<std::string> {
        if (request.starts_with("@05"))
            return taken ? std::optional<std::string>("ZLD05") : std::nullopt;
        return bus.usualReply(request);
    };
    sent();
    EXPECT_EQ(run("parameters write set.par --new-id 05 --yes"), 1);
    EXPECT_EQ(sent(), "DN|VER|DN");
    taken = false;
    EXPECT_EQ(run("parameters write set.par --new-id 05"), 1) << "nobody has said yes";
    EXPECT_EQ(sent().find('='), std::string::npos);
    EXPECT_EQ(run("parameters write set.par --new-id 05 --yes"), 0) << errors.str();
    EXPECT_NE(sent().find("|DN=ZLD05|"), std::string::npos);
}

}  // namespace
}  // namespace zlt::ctl
