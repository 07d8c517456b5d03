#include "bench/Clients.h"

#include "bench/PanelClient.h"
#include "bench/RawClient.h"

namespace zlt::bench {

std::string_view nameOf(Variant variant) {
    switch (variant) {
        case Variant::panel:
            return "panel";
        case Variant::sleeps:
            return "1 ms sleeps";
        case Variant::raw:
            return "raw read";
    }
    return {};
}

std::unique_ptr<Client> makeClient(Variant variant, PacedPeer& peer, long baud) {
    switch (variant) {
        case Variant::panel:
            return std::make_unique<PanelClient>(peer, baud, EmptyRead::wakesOnData);
        case Variant::sleeps:
            return std::make_unique<PanelClient>(peer, baud, EmptyRead::sleeps);
        case Variant::raw:
            return std::make_unique<RawClient>(peer, baud);
    }
    return nullptr;
}

}  // namespace zlt::bench
