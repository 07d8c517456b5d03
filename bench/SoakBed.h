#pragma once

#include <QTemporaryDir>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/PanelClient.h"
#include "link/PanelLink.h"
#include "tests/support/SimulatedBus.h"

namespace zlt::bench {

/// Keeps the messages: a soak run with all well has none.
class MessageCount final : public Gate {
 public:
    void message(std::string_view text) override { shown.emplace_back(text); }
    bool ask(std::string_view, std::string_view) override { return false; }
    std::optional<std::string> chooseToOpen(const FileChoice&) override { return std::nullopt; }
    std::optional<std::string> chooseToSave(const FileChoice&) override { return std::nullopt; }

    std::vector<std::string> shown;
};

/// The panel's world over a real port, with COM1 the simulator at full speed, in an empty
/// folder of its own.
class SoakBed {
 public:
    SoakBed();

    /// Leads COM1 to the simulator's present device.
    void listPort();
    std::unique_ptr<Port> makePort() { return services.makePort(nullptr); }

    QTemporaryDir folder;
    test::SimulatedBus simulator{{QStringLiteral("--unpaced")}};
    MessageCount gate;
    PortDirectory directory{portListFileName};
    LinkHandOver handOver{true, true, {{1}, "9600", "01"}, firmwareWithSecondThread};

 private:
    ThreadWaits m_waits;
    NoFiles m_files;
    NoHelp m_help;
    ProgramEnd m_programEnd;
    NoProcesses m_processes;

 public:
    Services services;
};

}  // namespace zlt::bench
