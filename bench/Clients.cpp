#include "bench/Clients.h"

#include "bench/PanelClient.h"
#include "bench/PyserialClient.h"
#include "bench/RawClient.h"

namespace zlt::bench {

void StepClient::runRound(long exchanges, Samples& samples) {
    open();
    for (long number = -warmUps; number < exchanges; ++number) {
        const auto begin = Clock::now();
        const bool answered = exchange();
        const auto taken = Clock::now() - begin;
        if (!answered) {
            ++samples.lost;
            recover();
        } else if (number >= 0) {
            samples.taken.push_back(taken);
        }
    }
    close();
}

void StepClient::recover() {
    close();
    peer().waitUntilIdle();
    open();
}

std::string_view nameOf(Variant variant) {
    switch (variant) {
        case Variant::panel:
            return "panel";
        case Variant::raw:
            return "C loop";
        case Variant::pyserial:
            return "pyserial";
        case Variant::sleeps:
            return "1 ms sleeps";
    }
    return {};
}

std::unique_ptr<Client> makeClient(Variant variant, PacedPeer& peer, const std::string& python) {
    switch (variant) {
        case Variant::panel:
            return std::make_unique<PanelClient>(peer, EmptyRead::wakesOnData);
        case Variant::raw:
            return std::make_unique<RawClient>(peer);
        case Variant::pyserial:
            return std::make_unique<PyserialClient>(peer, python);
        case Variant::sleeps:
            return std::make_unique<PanelClient>(peer, EmptyRead::sleeps);
    }
    return nullptr;
}

}  // namespace zlt::bench
