#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "link/PanelLink.h"
#include "platform/ShownState.h"

namespace zlt {

/// What a program does.
enum class ProgramState { idle, running, paused, errored };

/// The state that a code stands for, the reply to "SASTAT". Nothing for a code that stands for none
/// (3, say): what is shown so far stays then.
std::optional<ProgramState> programStateOfCode(std::int32_t code);

/// How a screen shows it.
ShownState shownState(ProgramState state);

/// What a program can be told, by the number after "SR=".
enum class RunCommand { stop, run, pause, resume };

/// "SR=1", say; for one program thread, `thread` is its digit: "SR0=1".
std::string runCommandText(RunCommand command, std::string_view thread = {});

/// Starts, stops, pauses and continues the controller's program as a whole, and sets whether
/// it starts by itself at power-up.
class RunControl {
 public:
    /// `sendMotionCommand` sends speed and acceleration, then the command.
    RunControl(PanelLink& link, std::function<void(std::string_view)> sendMotionCommand)
        : m_link(link), m_sendMotionCommand(std::move(sendMotionCommand)) {}

    /// One command each; the reply does not matter.
    void run() { send(RunCommand::run); }
    void pause() { send(RunCommand::pause); }
    void resume() { send(RunCommand::resume); }
    /// Stops the program, then the axis, after speed and acceleration. Throws ConversionError,
    /// with both stopped, when one of these is no number.
    void stop();

    /// Sets the start at power-up and returns what the controller then says of it; nothing when
    /// it says nothing. Throws ConversionError for a reply that is no number.
    std::optional<bool> setRunOnBoot(bool on);

 private:
    void send(RunCommand command) { m_link.SendReceive(runCommandText(command)); }

    PanelLink& m_link;
    std::function<void(std::string_view)> m_sendMotionCommand;
};

}  // namespace zlt
