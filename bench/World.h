#pragma once

#include <QTemporaryDir>
#include <stdexcept>
#include <string>
#include <vector>

#include "link/Services.h"
#include "link/serial/PortDirectory.h"
#include "platform_qt/PosixSystem.h"

namespace zlt::bench {

/// A message that nobody can answer here: what was measured has failed.
class ThrowingGate : public Gate {
 public:
    void message(std::string_view text) override { throw std::runtime_error(std::string(text)); }
    bool ask(std::string_view, std::string_view) override { return false; }
    std::optional<std::string> chooseToOpen(const FileChoice&) override { return std::nullopt; }
    std::optional<std::string> chooseToSave(const FileChoice&) override { return std::nullopt; }
};

/// Keeps the messages, for screens, through which nothing may be thrown. With all well there
/// are none.
class MessageList final : public ThrowingGate {
 public:
    void message(std::string_view text) override { shown.emplace_back(text); }

    std::vector<std::string> shown;
};

class NoProcesses final : public Processes {
 public:
    ProcessEnd runAndWait(const std::filesystem::path&, const Started&) override { return {}; }
};

class NoFiles final : public Files {
 public:
    FileContent read(const std::filesystem::path&) override { return {}; }
    std::optional<WriteFailure> writeWhole(const std::filesystem::path&,
                                           std::string_view) override {
        return WriteFailure{WriteFailure::Kind::noAccess, "there are no files here"};
    }
};

class NoHelp final : public HelpViewer {
 public:
    void openContents(const std::filesystem::path&) override {}
};

/// What link and screens need of the world outside, with real waits and one real port, and
/// nothing else in it.
class World {
 public:
    using MakePort = std::function<std::unique_ptr<Port>()>;

    static constexpr PortNumber port{1};

    /// `makePort` may use the world's directory; without it ports are the panel's own. `gate`
    /// outlives the world.
    explicit World(Gate& gate, MakePort makePort = {});

    /// Lets the port stand for this device. Throws when that fails.
    void listPort(const std::string& device);

    QTemporaryDir folder;
    PortDirectory directory;

 private:
    ThreadWaits m_waits;
    NoFiles m_files;
    NoHelp m_help;
    ProgramEnd m_programEnd;
    NoProcesses m_processes;

 public:
    const Services services;
};

}  // namespace zlt::bench
