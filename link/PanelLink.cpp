#include "link/PanelLink.h"

#include <exception>

namespace zlt {

PanelLink::PanelLink(const Services& services, PanelLinkListener& listener)
    : ScreenLink(services, flavours::controlPanel, &listener),
      m_services(services),
      m_listener(listener) {}

LinkHandOver PanelLink::handOver() const {
    return {PortReady(), CommOK(), connection, firmware, notes};
}

void PanelLink::lendPort(const std::function<void()>& action, std::chrono::milliseconds settling) {
    const PollPause pause(*this);
    m_services.waits.sleep(settling);
    if (PortReady())
        closePort();
    m_services.waits.sleep(settling);

    std::exception_ptr failure;
    try {
        action();
    } catch (const std::exception&) {
        // To be told once the port is back. An end of the program needs no port any more.
        failure = std::current_exception();
    }
    takeBack(settling);
    if (failure)
        std::rethrow_exception(failure);
}

void PanelLink::takeBack(std::chrono::milliseconds settling) {
    if (PortReady() && !openPort())
        m_listener.portNotTakenBack();
    m_services.waits.sleep(settling);
}

}  // namespace zlt
