#pragma once

#include <QTemporaryDir>

#include "link/serial/PortDirectory.h"
#include "platform/ProgramEnd.h"
#include "platform_qt/QtFiles.h"
#include "support/RecordingGate.h"
#include "support/ScriptedBus.h"

namespace zlt::test {

/// Records what would have been opened.
class RecordingHelp : public HelpViewer {
 public:
    void openContents(const std::filesystem::path& file) override { opened = file.string(); }
    std::string opened;
};

/// The real files, which can be made to fail on the way.
class BreakingFiles : public QtFiles {
 public:
    FileContent read(const std::filesystem::path& file) override {
        FileContent content = QtFiles::read(file);
        if (!breaksAfter || content.kind != FileContent::Kind::whole)
            return content;
        return {FileContent::Kind::brokenOff, content.bytes.substr(0, *breaksAfter), "bad sector"};
    }
    std::optional<std::size_t> breaksAfter;
};

/// Runs no program but what the test says it would have done.
class ScriptedTools : public Processes {
 public:
    ProcessEnd runAndWait(const std::filesystem::path& program, const Started& runs) override {
        started.push_back(program.filename().string());
        runs(4711);
        return run ? run(program.filename().string()) : ProcessEnd{};
    }
    std::function<ProcessEnd(const std::string& tool)> run;
    std::vector<std::string> started;
};

/// Everything a screen needs, with a scripted bus behind every port and an empty folder of
/// its own as the current directory.
struct World {
    World();
    ~World();

    QTemporaryDir folder, dataFolder;
    ScriptedBus bus;
    RecordingGate gate;
    CountedWaits waits;
    BreakingFiles files;
    RecordingHelp help;
    ProgramEnd programEnd;
    EndingGate endingGate{gate, programEnd};
    ScriptedTools tools;
    PortDirectory directory{portListFileName};

    /// The services of this world with these waits and ports.
    Services servicesWith(Waits& pauses, decltype(Services::makePort) makePort);
    Services services = servicesWith(waits, [this] { return bus.makePort(); });

    /// The reply table of a controller with this firmware, at rest.
    void answerAsController(const std::string& version = "V322");

 private:
    std::filesystem::path m_before;
};

}  // namespace zlt::test
