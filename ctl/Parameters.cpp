#include <algorithm>

#include "ctl/Context.h"
#include "ctl/Setup.h"
#include "parameters/Comparison.h"
#include "parameters/ParameterDown.h"
#include "platform/Text.h"
#include "terminal/TerminalTalk.h"

namespace zlt::ctl {
namespace {

using F = ParameterField;

/// The values as the panel would have them on its screen, UTF-8.
ParameterValues shownValues(const ParameterValues& latin1) {
    ParameterValues shown;
    for (const F field : parameterFields)
        shown[field] = utf8FromLatin1(latin1[field]);
    return shown;
}

void showSet(Output& output, const Setup& setup) {
    JsonObject object;
    for (const F field : parameterFields) {
        const auto& word = setup.transfer.deviceCopy().word(field);
        if (!word)
            continue;
        if (output.style.json)
            object.addRaw(parameterName(field), jsonValue(*word));
        else
            output.line(parameterName(field) + ": " + printable(*word));
    }
    if (output.style.json)
        output.line(object.text());
}

/// The device ID that the options want the controller to have; nothing for its own.
std::optional<std::string> wantedId(const Arguments& arguments, const ParameterSheet& file) {
    if (const auto asked = arguments.option("new-id"))
        return deviceAddress(*asked);
    if (arguments.option("id-policy") == "from-file")
        return file.set[F::deviceId];
    return std::nullopt;
}

/// Refuses an ID that no single controller could be reached by, or that another one has: two with
/// one ID answer both at once, and neither is understood.
void checkIdIsFree(Session& session, const std::string& id) {
    if (id == session.link.connection.deviceId)
        return;
    if (const std::string note = deviceIdNote(utf8FromLatin1(id)); !note.empty())
        throw Failure(ExitCode::refused, note + ".  Nothing was sent.");
    if (session.link.converse({.deviceId = id, .command = "DN"}) != Ending::timedOut)
        throw Failure(ExitCode::refused, "Another controller on " + session.target().portName +
                                             " has the ID " + id + ".  Nothing was written.");
}

void checkChange(const Context& context, const std::string& what, const std::string& from,
                 const std::string& to) {
    if (!context.gate.yes)
        throw Failure(ExitCode::refused, "The " + what + " would change from " +
                                             utf8FromLatin1(from) + " to " + utf8FromLatin1(to) +
                                             ".  Say --yes if it is to.  Nothing was written.");
}

void settleChanges(const Context& context, Setup& setup, const std::optional<std::string>& wanted) {
    ParameterValues& set = setup.sheet.set;
    const std::string presentId = setup.inController(F::deviceId);
    const bool keeps = context.arguments.option("id-policy") == "keep";
    if (!wanted && !keeps && set[F::deviceId] != presentId)
        throw Failure(ExitCode::refused,
                      "The file has the device ID " + utf8FromLatin1(set[F::deviceId]) +
                          ", the controller " + presentId +
                          ".  Say --id keep or --id from-file.  Nothing was written.");
    set[F::deviceId] = wanted.value_or(presentId);
    if (set[F::deviceId] != presentId)
        checkChange(context, "device ID", presentId, set[F::deviceId]);
    const std::string presentRate = setup.inController(F::baudRate);
    if (!isSameValue(F::baudRate, set[F::baudRate], presentRate))
        checkChange(context, "baud rate", presentRate, set[F::baudRate]);
}

void writeSet(Context& context, Setup& setup) {
    context.whenInterrupted = "Interrupted.  Part of the set may be written.";
    setup.transfer.download();
    const DeviceCopy& copy = setup.transfer.deviceCopy();
    const bool refused = std::ranges::any_of(
        parameterFields, [&](F field) { return copy.refusal(field).has_value(); });
    if (refused)
        throw Failure(ExitCode::refused, setup.sheet.outcome);
    if (!setup.sheet.outcome.empty())
        context.output.note(setup.sheet.outcome);
    if (!context.session.link.CommOK() || !context.arguments.has("store"))
        return;
    context.gate.yes = true;  // --store is the answer
    setup.transfer.storeToFlash();
    if (context.session.lastReply() != acknowledged)
        throw Failure(ExitCode::refused, "");
}

}  // namespace

void readParameters(Context& context) {
    const std::string file = context.operands.empty() ? "" : context.operands.front();
    if (!file.empty())
        checkOverwriting(context, file);
    context.session.identify();
    withSetup(context, [&](Setup& setup) {
        if (file.empty())
            showSet(context.output, setup);
        else
            setup.save(file);
    });
}

void writeParameters(Context& context) {
    const ParameterSheet file = openSheet(context, context.operands.front());
    const auto wanted = wantedId(context.arguments, file);
    context.session.identify();
    if (wanted)
        checkIdIsFree(context.session, *wanted);
    withSetup(context, [&](Setup& setup) {
        setup.take(file);
        settleChanges(context, setup, wanted);
        writeSet(context, setup);
    });
}

void compareParameters(Context& context) {
    Output& output = context.output;
    const ParameterSheet file = openSheet(context, context.operands.front());
    context.session.identify();
    withSetup(context, [&](Setup& setup) {
        setup.take(file);
        if (context.arguments.option("id-policy") == "keep")
            setup.sheet.set[F::deviceId] = setup.inController(F::deviceId);
        const auto rows =
            compareTable(shownValues(setup.sheet.set), setup.transfer.deviceCopy(), std::nullopt);
        for (const CompareRow& row : rows)
            output.line(output.style.json ? JsonObject()
                                                .add("value", row.value)
                                                .add("controller", row.inController)
                                                .add("file", row.onScreen)
                                                .text()
                                          : row.value + ": controller " + row.inController +
                                                ", file " + row.onScreen);
        if (!rows.empty())
            throw Failure(ExitCode::refused, "The controller differs from the file.");
    });
}

}  // namespace zlt::ctl
