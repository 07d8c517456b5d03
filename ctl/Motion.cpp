#include <algorithm>
#include <array>

#include "ctl/Context.h"
#include "panel/AxisReading.h"
#include "panel/MotionCommands.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt::ctl {
namespace {

using namespace std::chrono_literals;

/// How often a moving axis is asked.
constexpr auto standstillInterval = 20ms;

constexpr std::array<std::string_view, 10> homings{"H+", "H-",  "HL+", "HL-", "L+",
                                                   "L-", "ZH+", "ZH-", "Z+",  "Z-"};

MotionFields fieldsOf(const Arguments& arguments) {
    return {.speed = arguments.option("speed").value_or(""),
            .acceleration = arguments.option("accel").value_or(""),
            .position = {},
            .fillsEmpty = false};
}

MotionCommands commandsOf(Context& context) {
    return {context.session.link, [] {}};
}

MotionState readMotion(PanelLink& link) {
    return StatusWord(replyToInteger("MST", link.SendReceive("MST"))).motion();
}

bool isLimitError(MotionState motion) {
    return motion == MotionState::negativeLimitError || motion == MotionState::positiveLimitError;
}

/// Returns once the axis has been seen at rest twice: a move may need a moment to begin.
void waitForStandstill(Context& context) {
    context.whenInterrupted = "Interrupted.  The axis was not stopped.";
    for (int atRest = 0; atRest < 2;) {
        const MotionState motion = readMotion(context.session.link);
        if (isLimitError(motion))
            throw Failure(ExitCode::refused, "The axis has met a limit: " +
                                                 std::string(shownState(motion).words) + ".");
        atRest = motion == MotionState::idle ? atRest + 1 : 0;
        context.console.pause(standstillInterval);
    }
}

void waitIfAsked(Context& context) {
    if (context.arguments.has("wait"))
        waitForStandstill(context);
}

void stopBy(Context& context, const std::string& command) {
    Session& session = context.session;
    try {
        session.runToTheEnd([&] {
            MotionFields nothing = fieldsOf({});
            if (session.isForAll())
                session.broadcast(command);
            else
                commandsOf(context).SendMotionCommand(nothing, command);
        });
    } catch (const Failure& failure) {
        if (failure.code() != ExitCode::noReply)
            throw;
        throw Failure(ExitCode::noReply,
                      command + " went out; whether it was heard is not known.  " + failure.what());
    }
}

}  // namespace

void moveAxis(Context& context) {
    MotionFields fields = fieldsOf(context.arguments);
    fields.position = context.operands.front();
    if (const auto [number, fault] = parseTyped("POSITION", fields.position); !number)
        throw Failure(ExitCode::refused, fault);
    commandsOf(context).move(fields);
    waitIfAsked(context);
}

void jogAxis(Context& context) {
    const std::string& direction = context.operands.front();
    if (direction != "+" && direction != "-")
        throw Failure(ExitCode::usage, "jog takes + or -, not " + inQuotes(direction) + ".");
    MotionFields fields = fieldsOf(context.arguments);
    commandsOf(context).SendMotionCommand(fields, "J" + direction);
    waitIfAsked(context);
}

void homeAxis(Context& context) {
    std::string kind = context.operands.front();
    if (kind == "+" || kind == "-")
        kind = "H" + kind;
    if (std::ranges::find(homings, kind) == homings.end())
        throw Failure(ExitCode::usage, "There is no homing " + inQuotes(kind) + ".");
    MotionFields fields = fieldsOf(context.arguments);
    if (!kind.starts_with("HL") && !kind.starts_with("L"))
        commandsOf(context).SendMotionCommand(fields, kind);
    else if (context.session.link.firmware < firmwareWithHLHoming)
        throw Failure(ExitCode::refused, "This controller's firmware has no homing " + kind + ".");
    else
        commandsOf(context).sendHLHoming(fields, kind);
    waitIfAsked(context);
}

void stopAxis(Context& context) {
    stopBy(context, "STOP");
    if (!context.session.isForAll())
        waitIfAsked(context);
}

void abortAxis(Context& context) {
    stopBy(context, "ABORT");
}

}  // namespace zlt::ctl
