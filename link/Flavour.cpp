#include "link/Flavour.h"

namespace zlt {

using namespace std::chrono_literals;

std::chrono::milliseconds settlingWait(const SettlingWaits& waits, std::string_view command) {
    const bool busy = command == "STORE" || command.starts_with("DN=") || command.starts_with('Z');
    auto wait = busy ? waits.busyCommand : waits.otherCommand;
    if (!waits.marker.empty() && command.find(waits.marker) != std::string_view::npos)
        wait += waits.markedCommand;
    return wait;
}

namespace {

constexpr Reaction noResponse{.message = "No Response!"};
constexpr Reaction noReply{.message = "No Reply to Command: ",
                           .appended = Reaction::Appended::command};
constexpr Reaction portNotOpen{.message = "Communication port not open!"};
// A control panel that cannot reach its port must not look as if the axis were under control.
constexpr Reaction fatalPortError{.message = "Communication Error! ",
                                  .appended = Reaction::Appended::portError,
                                  .secondMessage = portNotAvailable,
                                  .endsProgram = true};
constexpr Reaction fatalSilence{
    .message = "No Response", .appended = Reaction::Appended::command, .endsProgram = true};

}  // namespace

namespace flavours {

const Flavour controlPanel{
    .waits = {.busyCommand = 200ms, .marker = "SR", .markedCommand = 200ms},
    .onPortLost = fatalPortError,
};

const Flavour parameterSetup{
    .onlyWhileConnected = true,
    .waits = longProgramWaits,
    .emptyReply = EmptyReply::returnedForSACommands,
    .onEmptyReply = noResponse,
    .onTimeOut = noReply,
    .onPortLost = portNotOpen,
};

const Flavour variables{
    .onlyWhileConnected = true,
    .emptyReply = EmptyReply::returnedForSACommands,
    .onEmptyReply = noResponse,
    .onTimeOut = noReply,
    .onPortLost = noReply,
};

const Flavour secondThread{
    .emptyReply = EmptyReply::returnedForSACommands,
    .onEmptyReply = noResponse,
    .onTimeOut = noReply,
    .onPortLost = portNotOpen,
};

const Flavour terminal{};

const Flavour programEditor{
    .waits = {.busyCommand = 1000ms,
              .otherCommand = 50ms,
              .marker = "SA84",
              .markedCommand = 1000ms},
    .endOfReply = EndOfReply::atSilence,
    .onTimeOut = fatalSilence,
    .onPortLost = portNotOpen,
};

}  // namespace flavours
}  // namespace zlt
