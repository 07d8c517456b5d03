#include "parameters/ParameterTransfer.h"

#include "parameters/ParameterEncoding.h"
#include "platform/Latin1.h"
#include "platform/NumberConversion.h"

namespace zlt {
namespace {

constexpr std::string_view acknowledged = "OK";
/// The baud question bears it too.
constexpr std::string_view changeTitle = "Device ID";

}  // namespace

ParameterTransfer::ParameterTransfer(const Services& services, const LinkHandOver& handOver,
                                     ParameterView& view)
    : m_services(services),
      m_view(view),
      m_firmware(handOver.firmware),
      m_link(services, flavours::parameterSetup, nullptr) {
    m_link.takeOver(handOver);
}

bool ParameterTransfer::ready() {
    if (!m_link.PortReady)
        m_services.gate.message("Communication port not open!");
    else if (!m_link.CommOK())
        m_services.gate.message("Communication with device not open!");
    return m_link.PortReady && m_link.CommOK();
}

// Upload

void ParameterTransfer::upload() {
    if (!ready())
        return;
    m_view.showActivity(ParameterView::Activity::reading);
    for (const TransferStep& step : uploadOrder()) {
        const FieldRange fields = step.parameter.fields;
        disableUnread(fields);
        if (m_firmware < parameterRow(fields.first).readFrom)
            continue;
        read(step);
        if (step.check != LinkCheck::none && !m_link.CommOK())
            return;
    }
}

void ParameterTransfer::disableUnread(FieldRange fields) {
    for (std::size_t place = 0; place < fields.count; ++place)
        if (m_firmware < parameterRow(fields[place]).readFrom)
            m_view.disable(fields[place]);
}

void ParameterTransfer::read(const TransferStep& step) {
    const auto words = fieldsOfReply(step.parameter, m_link.SendReceive(step.parameter.command));
    if (step.check == LinkCheck::beforeShowing && !m_link.CommOK())
        return;
    for (const FieldText& word : words) {
        if (m_firmware < parameterRow(word.field).readFrom)
            continue;
        if (word.offered)
            m_view.showField(word.field, word.text);
        if (m_link.CommOK())
            note(word);
    }
}

// Down

void ParameterTransfer::download() {
    if (!ready())
        return;
    const ParameterValues values = m_view.values();
    m_view.showActivity(ParameterView::Activity::writing);
    for (const TransferStep& step : downOrder()) {
        const Parameter& parameter = step.parameter;
        if (m_firmware < parameterRow(parameter.fields.first).writtenFrom)
            continue;
        if (parameter.encoding == Encoding::deviceName)
            writeDeviceId(parameter, values);
        else if (parameter.encoding == Encoding::baudCode)
            writeBaudRate(parameter, values);
        else
            write(parameter, values);
        if (step.check != LinkCheck::none && !m_link.CommOK())
            return;
    }
    showResult("Download Done!");
}

void ParameterTransfer::write(const Parameter& parameter, const ParameterValues& values) {
    if (const auto command = writeCommand(parameter, values))
        send(*command, parameter, values);
}

void ParameterTransfer::writeDeviceId(const Parameter& parameter, const ParameterValues& values) {
    const auto words = fieldsOfReply(parameter, m_link.SendReceive(parameter.command));
    if (!m_link.CommOK())
        return;
    const FieldText& current = words.front();
    note(current);
    const std::string& wanted = values[current.field];
    if (current.text == wanted)
        return;
    if (!m_services.gate.ask(changeTitle, "Are you sure you want change Device ID to " +
                                              utf8FromLatin1(wanted) + "?")) {
        m_view.showField(current.field, current.text);
        return;
    }
    carryOut({.done = "Device ID Set.  Perform store to flash and reset power for new Device ID "
                      "to take effect.",
              .failed = "Error setting device ID"},
             parameter, values);
}

void ParameterTransfer::writeBaudRate(const Parameter& parameter, const ParameterValues& values) {
    const std::string code = m_link.SendReceive(parameter.command);
    if (!m_link.CommOK())
        return;
    if (parseInteger(code))
        note(fieldsOfReply(parameter, code).front());
    // Compared as texts: a code that is no number is simply another setting.
    const auto wanted = writeCommand(parameter, values);
    if (!wanted || *wanted == std::string(parameter.command) + "=" + code)
        return;
    if (!m_services.gate.ask(changeTitle, "Are you sure you want change the baudrate?"))
        return;
    carryOut({.done = "Baudrate change done.  Store to flash, exit program, and reset power for "
                      "new baudrate to take effect.",
              .failed = "Error setting baudrate."},
             parameter, values);
}

void ParameterTransfer::carryOut(const ChangeMessages& messages, const Parameter& parameter,
                                 const ParameterValues& values) {
    m_view.showActivity(ParameterView::Activity::writing);  // over where the question was
    const bool done = send(*writeCommand(parameter, values), parameter, values);
    if (!m_link.CommOK())
        return;
    showResult(done ? messages.done : messages.failed);
    m_view.showActivity(ParameterView::Activity::writing);
}

bool ParameterTransfer::send(std::string_view command, const Parameter& parameter,
                             const ParameterValues& values) {
    if (m_link.SendReceive(command) != acknowledged)
        return false;
    m_copy.unstored = true;
    for (std::size_t place = 0; place < parameter.fields.count; ++place) {
        const ParameterField field = parameter.fields[place];
        note({field, values[field]});
    }
    return true;
}

// Flash

void ParameterTransfer::storeToFlash() {
    if (!ready() || !m_services.gate.ask("Store to Flash",
                                         "Are you sure you want to save parameters to flash?"))
        return;
    m_view.showActivity(ParameterView::Activity::storing);
    const bool done = m_link.SendReceive("STORE") == acknowledged;
    if (!m_link.CommOK())
        return;
    if (done) {
        m_copy.unstored = false;
        m_view.showDeviceCopy(m_copy);
    }
    showResult(done ? "Store to Flash done!" : "Error setting flash!");
}

void ParameterTransfer::showResult(std::string_view message) {
    m_view.showActivity(ParameterView::Activity::none);
    m_services.gate.message(message);
}

void ParameterTransfer::note(const FieldText& word) {
    m_copy.note(word);
    m_view.showDeviceCopy(m_copy);
}

}  // namespace zlt
