#pragma once

#include <QTemporaryDir>

#include "link/PortDirectory.h"
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

/// Runs no program but what the test says it would have done.
class ScriptedTools : public Processes {
 public:
    ProcessEnd runAndWait(const std::filesystem::path& program) override {
        started.push_back(program.filename().string());
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
    QtFiles files;
    RecordingHelp help;
    ProgramEnd programEnd;
    ScriptedTools tools;
    PortDirectory directory{portListFileName};

    /// The services of this world with these waits and ports.
    Services servicesWith(Waits& pauses, decltype(Services::makePort) makePort);
    Services services = servicesWith(waits, [this](QObject*) { return bus.makePort(); });

    /// The reply table of a controller with this firmware, at rest.
    void answerAsController(const std::string& version = "V322");

 private:
    std::filesystem::path m_before;
};

}  // namespace zlt::test
