// The scripts of the guide's page, as they stand there, against the simulator.

#include <QRegularExpression>
#include <filesystem>
#include <iterator>

#include "ctl/ZltctlProcess.h"

namespace zlt::test {
namespace {

std::string wholeFile(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

class GuideScripts : public ZltctlProcess {
 protected:
    explicit GuideScripts(const QStringList& controllers = {})
        : ZltctlProcess(QStringList{QStringLiteral("--unpaced")} + controllers) {
        const std::string page = wholeFile(ZLT_SCRIPTS_PAGE);
        const QRegularExpression block(
            QStringLiteral("```bash\n(#![^\n]*\n# ([a-z-]+):[^`]*?)```\n"));
        for (auto blocks = block.globalMatch(QString::fromStdString(page)); blocks.hasNext();) {
            const auto found = blocks.next();
            const std::string file = path(found.captured(2).toUtf8());
            std::ofstream(file) << found.captured(1).toStdString();
            std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        }
    }
    /// Runs a script that needs nobody.
    int runScript(const char* name) {
        QProcess script;
        start(script, QString::fromStdString(path(name)), {});
        const int code = codeOf(script, 120'000);
        results = script.readAllStandardOutput().toStdString();
        errors = script.readAllStandardError().toStdString();
        return code;
    }
};

TEST_F(GuideScripts, TheNightlyTestTellsAGoodMachineFromABadOne) {
    ASSERT_EQ(run("parameters read machine.par"), 0) << errors;
    EXPECT_EQ(runScript("nightly"), 0) << errors;
    EXPECT_NE(wholeFile(path("nightly.log")).find(" good\n"), std::string::npos);

    ASSERT_EQ(run("send CURR=1200"), 0);
    EXPECT_EQ(runScript("nightly"), 1);
    EXPECT_NE(wholeFile(path("nightly.log")).find("FAILED: line"), std::string::npos);
    EXPECT_NE(results.find("Run current: controller 1200, file 1000"), std::string::npos);

    ASSERT_EQ(run("parameters write machine.par"), 0) << errors;
    bus.say("answer PX=17");
    EXPECT_EQ(runScript("nightly"), 1);
    EXPECT_NE(wholeFile(path("nightly.log")).find("FAILED: at 17, not at 8000"), std::string::npos)
        << errors;
}

class GuideScriptsNarrow : public GuideScripts {
 protected:
    GuideScriptsNarrow()
        : GuideScripts({QStringLiteral("--controller"), QStringLiteral("1,limits=-5000:3000")}) {}
};

TEST_F(GuideScriptsNarrow, TheNightlyTestStopsAtALimit) {
    ASSERT_EQ(run("parameters read machine.par"), 0) << errors;
    EXPECT_EQ(runScript("nightly"), 1);
    EXPECT_NE(errors.find("+LIM ERR"), std::string::npos) << errors;
    EXPECT_EQ(run("status motion"), 0);
    EXPECT_EQ(results, "+LIM ERR\n");
}

class GuideScriptsTwenty : public GuideScripts {
 protected:
    GuideScriptsTwenty() : GuideScripts(twenty()) {}

    static QStringList twenty() {
        QStringList options;
        for (int id = 1; id <= 20; ++id)
            options << QStringLiteral("--controller") << QString::number(id);
        return options;
    }
};

TEST_F(GuideScriptsTwenty, OneFileForAllOfABus) {
    ASSERT_EQ(run("--id 07 send CURR=1500 LCA=99"), 0) << errors;
    ASSERT_EQ(run("--id 07 parameters read machine.par"), 0) << errors;
    EXPECT_EQ(runScript("same-for-all"), 0) << errors;
    EXPECT_NE(results.find("20 good\n"), std::string::npos) << results;
    bus.say("power");
    for (const char* line : {"--id 01 send CURR LCA", "--id 20 send CURR LCA"}) {
        EXPECT_EQ(run(line), 0) << errors;
        EXPECT_EQ(results, "1500\n99\n") << line << ": in flash";
    }
    bus.say("id 20 21");
    EXPECT_EQ(runScript("same-for-all"), 1);
    EXPECT_NE(results.find("19 good\n20 WRONG\n"), std::string::npos) << results;
}

TEST_F(GuideScripts, NewControllersGetTheirIds) {
    ASSERT_EQ(run("parameters read machine.par"), 0) << errors;
    QProcess script;
    start(script, QString::fromStdString(path("new-controllers")),
          {QStringLiteral("machine.par"), QStringLiteral("02"), QStringLiteral("03")});
    for (const char* id : {"02", "03"}) {
        EXPECT_NE(nextLine(script).find("Wire up"), std::string::npos);
        script.write("\n");
        EXPECT_NE(nextLine(script).find("Switch " + std::string(id)), std::string::npos);
        bus.say("power");
        script.write("\n");
        EXPECT_EQ(nextLine(script), std::string(id) + " good");
        bus.say(("id " + std::string(id) + " 1").c_str());  // the next one, as new as the first
    }
    EXPECT_EQ(codeOf(script), 0) << script.readAllStandardError().toStdString();
}

}  // namespace
}  // namespace zlt::test
