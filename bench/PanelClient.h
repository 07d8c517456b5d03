#pragma once

#include "bench/Clients.h"
#include "bench/World.h"
#include "link/ScreenLink.h"

namespace zlt::bench {

/// What an empty read does with its millisecond.
enum class EmptyRead { wakesOnData, sleeps };

/// The exchange as the panel makes it, over the panel's own port.
class PanelClient final : public StepClient {
 public:
    PanelClient(PacedPeer& peer, EmptyRead emptyRead);

    void open() override;
    void close() override { m_link.closePort(); }
    bool exchange() override;

 private:
    ThrowingGate m_gate;
    World m_world;
    ScreenLink m_link;
};

}  // namespace zlt::bench
