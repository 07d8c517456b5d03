#pragma once

#include <QTemporaryDir>

#include "bench/Clients.h"
#include "link/PortDirectory.h"
#include "link/ScreenLink.h"
#include "link/Services.h"
#include "platform_qt/ThreadWaits.h"

namespace zlt::bench {

/// What an empty read does with its millisecond.
enum class EmptyRead { wakesOnData, sleeps };

/// A message that nobody can answer here: the exchange has failed.
class ThrowingGate final : public Gate {
 public:
    [[noreturn]] void message(std::string_view text) override;
    bool ask(std::string_view, std::string_view) override { return false; }
    std::optional<std::string> chooseToOpen(const FileChoice&) override { return std::nullopt; }
    std::optional<std::string> chooseToSave(const FileChoice&) override { return std::nullopt; }
};

class NoProcesses final : public Processes {
 public:
    ProcessEnd runAndWait(const std::filesystem::path&) override { return {}; }
};

class NoFiles final : public Files {
 public:
    std::optional<std::string> read(const std::filesystem::path&, std::size_t) override {
        return std::nullopt;
    }
    std::optional<std::string> writeWhole(const std::filesystem::path&, std::string_view) override {
        return "There are no files here";
    }
};

class NoHelp final : public HelpViewer {
 public:
    void openContents(const std::filesystem::path&) override {}
};

/// The exchange as the panel makes it, over the panel's own port.
class PanelClient final : public Client {
 public:
    PanelClient(PacedPeer& peer, long baud, EmptyRead emptyRead);

    void open() override;
    void close() override { m_link.closePort(); }
    bool exchange() override;

 private:
    QTemporaryDir m_folder;
    PortDirectory m_directory;
    ThrowingGate m_gate;
    ThreadWaits m_waits;
    NoFiles m_files;
    NoHelp m_help;
    ProgramEnd m_programEnd;
    NoProcesses m_processes;
    Services m_services;
    ScreenLink m_link;
};

}  // namespace zlt::bench
