#include "parameters/ParameterDown.h"

#include "link/Exchange.h"
#include "parameters/Comparison.h"
#include "parameters/ParameterEncoding.h"
#include "platform/Text.h"

namespace zlt {
namespace {

/// The baud question bears it too.
constexpr std::string_view changeTitle = "Device ID";

}  // namespace

void ParameterDown::write(const ParameterValues& values) {
    m_view.showActivity(ParameterView::Activity::writing);
    m_view.showOutcome({});
    const bool whole = writeAll(values);
    if (!m_refused.empty())
        m_view.showOutcome("Refused: " + m_refused);
    else if (whole && !m_changed)
        m_view.showOutcome("Nothing was changed: the controller had these values already.");
    if (whole)
        showResult("Download Done!");
}

/// False when a failed exchange ended it.
bool ParameterDown::writeAll(const ParameterValues& values) {
    for (const TransferStep& step : downOrder()) {
        const Parameter& parameter = step.parameter;
        if (m_firmware < parameterRow(parameter.fields.first).writtenFrom)
            continue;
        if (parameter.encoding == Encoding::deviceName)
            writeDeviceId(parameter, values);
        else if (parameter.encoding == Encoding::baudCode)
            writeBaudRate(parameter, values);
        else
            send(parameter, values);
        if (step.check != LinkCheck::none && !m_link.CommOK())
            return false;
    }
    return true;
}

void ParameterDown::writeDeviceId(const Parameter& parameter, const ParameterValues& values) {
    const ParameterField field = parameter.fields.first;
    const std::string name = m_link.SendReceive(parameter.command);
    noteCurrent(parameter, name);
    if (!m_link.CommOK())
        return;
    const std::string& wanted = values[field];
    if (afterDeviceNamePrefix(name, 2) == wanted)
        return;
    if (!confirmDeviceId(wanted)) {
        if (const auto& current = m_copy.word(field))
            m_view.showField(field, *current);
        return;
    }
    carryOut({.done = "Device ID Set.  Perform store to flash and reset power for new Device ID "
                      "to take effect.",
              .failed = "Error setting device ID"},
             parameter, values);
}

bool ParameterDown::confirmDeviceId(const std::string& wanted) {
    const std::string shown = utf8FromLatin1(wanted);
    return m_gate.ask(changeTitle, "Are you sure you want change Device ID to " + shown + "?") &&
           (!isTakenOn(m_link, wanted) ||
            m_gate.ask(changeTitle,
                       "A controller with the device ID " + shown +
                           " has answered on this bus.  Two with one ID answer both at "
                           "once, and neither is understood.  Change it all the same?"));
}

void ParameterDown::writeBaudRate(const Parameter& parameter, const ParameterValues& values) {
    const std::string code = m_link.SendReceive(parameter.command);
    noteCurrent(parameter, code);
    if (!m_link.CommOK())
        return;
    // Compared as texts: a code that is no number is simply another setting.
    const auto wanted = writeCommand(parameter, values);
    if (!wanted || *wanted == std::string(parameter.command) + "=" + code)
        return;
    if (!m_gate.ask(changeTitle, "Are you sure you want change the baudrate?"))
        return;
    carryOut({.done = "Baudrate change done.  Store to flash, exit program, and reset power for "
                      "new baudrate to take effect.",
              .failed = "Error setting baudrate."},
             parameter, values);
}

/// What the controller said of a value that is asked for before it is changed.
void ParameterDown::noteCurrent(const Parameter& parameter, const std::string& reply) {
    m_copy.noteUnread(parameter.fields);
    if (m_link.CommOK())
        for (const FieldText& word : fieldsOfReply(parameter, reply).words)
            m_copy.noteRead(word);
    m_view.showDeviceCopy(m_copy);
}

void ParameterDown::carryOut(const ChangeMessages& messages, const Parameter& parameter,
                             const ParameterValues& values) {
    m_view.showActivity(ParameterView::Activity::writing);  // over where the question was
    const bool done = send(parameter, values);
    if (!m_link.CommOK())
        return;
    showResult(done ? messages.done : messages.failed);
    m_view.showActivity(ParameterView::Activity::writing);
}

/// True when the controller said "OK".
bool ParameterDown::send(const Parameter& parameter, const ParameterValues& values) {
    const auto command = writeCommand(parameter, values);
    if (!command || !m_link.CommOK())
        return false;
    const std::string reply = m_link.SendReceive(*command);
    const bool done = m_link.CommOK() && reply == acknowledged;
    if (done)
        m_changed = m_copy.noteAccepted(parameter, values) || m_changed;
    else if (m_link.CommOK())
        noteRefused(parameter, values, *command, reply);
    else
        m_copy.noteLost(parameter);
    m_view.showDeviceCopy(m_copy);
    return done;
}

void ParameterDown::noteRefused(const Parameter& parameter, const ParameterValues& values,
                                const std::string& command, const std::string& reply) {
    const ParameterField first = parameter.fields.first;
    if (!m_copy.has(first))
        return;  // written all the same; that this firmware has no such value is known
    m_copy.noteRefused(parameter, values, reply);
    m_refused += (m_refused.empty() ? "" : "; ") + namesOf({first}) + ": " +
                 inQuotes(utf8FromLatin1(reply)) + " to " + inQuotes(utf8FromLatin1(command));
}

void ParameterDown::showResult(std::string_view message) {
    m_view.showActivity(ParameterView::Activity::none);
    m_gate.message(message);
}

bool isTakenOn(const ScreenLink& link, const std::string& deviceId) {
    return deviceId != link.connection.deviceId &&
           link.notes->hasAnswered(link.connection, deviceId);
}

}  // namespace zlt
