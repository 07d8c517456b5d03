#pragma once

#include <chrono>
#include <string_view>

#include "link/Exchange.h"

namespace zlt {

/// Waits between a request and the first read, for commands that keep the controller busy.
struct SettlingWaits {
    /// "STORE", and commands that begin with "DN=" or "Z".
    std::chrono::milliseconds busyCommand{0};
    std::chrono::milliseconds otherCommand{0};
    /// A command that holds this text anywhere waits `markedCommand` on top.
    std::string_view marker = {};
    std::chrono::milliseconds markedCommand{0};
};

/// The settling waits of the parameter setup, and of raw conversations on whatever screen.
inline constexpr SettlingWaits longProgramWaits{.busyCommand = std::chrono::milliseconds(200),
                                                .marker = "SR",
                                                .markedCommand = std::chrono::milliseconds(1000)};

/// The whole settling wait of one command.
std::chrono::milliseconds settlingWait(const SettlingWaits& waits, std::string_view command);

/// What the operator is told about an exchange that failed, and what follows.
struct Reaction {
    enum class Appended { nothing, command, portError };

    std::string_view message = {};  ///< none when empty
    Appended appended = Appended::nothing;
    std::string_view secondMessage = {};  ///< shown once the screen shows the loss
    bool endsProgram = false;
};

enum class EmptyReply {
    returned,               ///< as the empty text
    returnedForSACommands,  ///< so too, but only for commands beginning with "SA"; else a failure
};

/// How one family of screens exchanges commands. The read loop and the framing are the same
/// for all; what differs is told here.
struct Flavour {
    bool onlyWhileConnected = false;  ///< sends nothing while the connected flag is clear
    SettlingWaits waits = {};
    EndOfReply endOfReply = EndOfReply::atEndMark;
    EmptyReply emptyReply = EmptyReply::returned;
    Reaction onEmptyReply = {};
    Reaction onTimeOut = {};
    Reaction onPortLost = {};
};

namespace flavours {
extern const Flavour controlPanel;
extern const Flavour parameterSetup;
extern const Flavour variables;
extern const Flavour secondThread;
extern const Flavour terminal;  ///< for raw conversations; what they met is written down
extern const Flavour programEditor;
}  // namespace flavours

/// Shown when a port cannot be opened, and after a lost one. Two blanks after the "!".
inline constexpr std::string_view portNotAvailable =
    "Communication port not available!  Please select available communication port and try "
    "again.";

}  // namespace zlt
