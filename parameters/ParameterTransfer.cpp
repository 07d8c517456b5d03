#include "parameters/ParameterTransfer.h"

#include "parameters/Comparison.h"
#include "parameters/ParameterEncoding.h"

namespace zlt {

ParameterTransfer::ParameterTransfer(const Services& services, const LinkHandOver& handOver,
                                     ParameterView& view, LinkListener* listener)
    : m_services(services),
      m_view(view),
      m_firmware(handOver.firmware),
      m_link(services, flavours::parameterSetup, listener),
      m_copy(handOver.notes->of(handOver.connection), handOver.firmware) {
    m_link.takeOver(handOver);
}

bool ParameterTransfer::ready() {
    if (!m_link.PortReady())
        m_services.gate.message("Communication port not open!");
    else if (!m_link.CommOK())
        m_services.gate.message("Communication with device not open!");
    return m_link.PortReady() && m_link.CommOK();
}

// Upload

void ParameterTransfer::upload() {
    if (!ready())
        return;
    m_view.showActivity(ParameterView::Activity::reading);
    m_view.showOutcome({});
    for (const TransferStep& step : uploadOrder()) {
        const FieldRange fields = step.parameter.fields;
        disableUnread(fields);
        if (!m_copy.has(fields.first))
            continue;
        read(step);
        if (step.check != LinkCheck::none && !m_link.CommOK())
            break;
    }
    showUnread();
}

void ParameterTransfer::disableUnread(FieldRange fields) {
    for (std::size_t place = 0; place < fields.count; ++place)
        if (!m_copy.has(fields[place]))
            m_view.disable(fields[place]);
}

void ParameterTransfer::read(const TransferStep& step) {
    const Parameter& parameter = step.parameter;
    if (!m_link.CommOK())
        return;  // not asked any more
    const std::string reply = m_link.SendReceive(parameter.command);
    m_copy.noteUnread(parameter.fields);
    if (m_link.CommOK()) {
        const ReplyFields fields = fieldsOfReply(parameter, reply);
        for (const FieldText& word : fields.words)
            m_copy.noteRead(word);
        for (const FieldText& each : fields.shown)
            if (m_copy.has(each.field))
                m_view.showField(each.field, each.text);
    }
    m_view.showDeviceCopy(m_copy);
}

/// An exchange that failed has had its message; what it left unread is told on the screen alone.
void ParameterTransfer::showUnread() {
    const std::string unread = namesOf(unreadFields(m_copy));
    if (unread.empty())
        return;
    m_view.showOutcome("Not read: " + unread);
    if (m_link.CommOK())
        showResult("Not read from the controller: " + unread +
                   ".  What it answered there is no value.");
}

// Down

void ParameterTransfer::download() {
    if (!ready())
        return;
    const ParameterValues values = m_view.values();
    if (!confirmUnread(m_services.gate, "Down", unreadFields(m_copy),
                       "Write what the screen shows there all the same?"))
        return;
    ParameterDown(m_services.gate, m_view, m_link, m_copy, m_firmware).write(values);
}

// Flash

void ParameterTransfer::storeToFlash() {
    if (!ready() || !m_services.gate.ask("Store to Flash",
                                         "Are you sure you want to save parameters to flash?"))
        return;
    m_view.showActivity(ParameterView::Activity::storing);
    const std::string reply = m_link.SendReceive("STORE");
    const bool done = m_link.CommOK() && reply == acknowledged;
    if (done)
        m_copy.noteStored();
    else
        m_copy.noteStoreLost();
    m_view.showDeviceCopy(m_copy);
    if (m_link.CommOK())
        showResult(done ? "Store to Flash done!" : "Error setting flash!");
}

void ParameterTransfer::showResult(std::string_view message) {
    m_view.showActivity(ParameterView::Activity::none);
    m_services.gate.message(message);
}

}  // namespace zlt
