#include "bench/PanelClient.h"

#include <stdexcept>

#include "bench/TimedPort.h"

namespace zlt::bench {
namespace {

/// What the link returns in place of a reply.
constexpr std::string_view noAnswer = "0";

/// The panel's port, but deaf while it waits.
class SleepingPort final : public TimedPort {
 public:
    using TimedPort::TimedPort;

    PortInput waitForInput(std::chrono::milliseconds time) override {
        m_waits.sleep(time);
        return PortInput::nothing;
    }

 private:
    ThreadWaits m_waits;
};

}  // namespace

PanelClient::PanelClient(PacedPeer& peer, EmptyRead emptyRead)
    : StepClient(peer),
      m_world(m_gate,
              [&peer, this, emptyRead]() -> std::unique_ptr<Port> {
                  if (emptyRead == EmptyRead::sleeps)
                      return std::make_unique<SleepingPort>(peer, m_world.directory);
                  return std::make_unique<TimedPort>(peer, m_world.directory);
              }),
      m_link(m_world.services, flavours::controlPanel, nullptr) {
    m_world.listPort(peer.device());
    m_link.connection = {.port = World::port,
                         .baudRate = std::to_string(peer.line().baud),
                         .deviceId = std::string(deviceId)};
}

void PanelClient::open() {
    if (!m_link.openPort())
        throw std::runtime_error("the panel cannot open its port: " +
                                 m_world.directory.lastOpening(World::port).failure);
    m_link.setCommOK(true);
}

bool PanelClient::exchange() {
    const std::string answer = m_link.SendReceive(command);
    if (answer == noAnswer)
        return false;
    if (answer != position)
        throw std::runtime_error("the panel got the reply \"" + answer + "\"");
    return true;
}

}  // namespace zlt::bench
