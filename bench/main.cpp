#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <exception>
#include <iostream>
#include <map>
#include <stdexcept>

#include "bench/Clients.h"
#include "bench/Options.h"
#include "bench/PacedPeer.h"
#include "bench/Report.h"

namespace zlt::bench {
namespace {

constexpr std::array baudRates{9600L, 38400L, 115200L};
/// Of wire time. Short enough that a disturbance of the machine meets all variants.
constexpr std::chrono::milliseconds roundTime{400};
/// Exchanges of a round that are not counted: the first ones run on cold caches.
constexpr long warmUps = 3;

/// Gets client and peer together again: the late reply must not answer the next request.
void recover(Client& client, const PacedPeer& peer) {
    client.close();
    peer.waitUntilIdle();
    client.open();
}

void runRound(Client& client, const PacedPeer& peer, long exchanges, Samples& samples) {
    client.open();
    for (long exchange = -warmUps; exchange < exchanges; ++exchange) {
        const auto begin = Clock::now();
        const bool answered = client.exchange();
        const auto taken = Clock::now() - begin;
        if (!answered) {
            ++samples.lost;
            recover(client, peer);
        } else if (exchange >= 0) {
            samples.taken.push_back(taken);
            samples.peerLate.push_back(peer.lateBy());
        }
    }
    client.close();
}

/// All variants at one baud rate. False when an aim was missed.
bool measure(long baud, int rounds) {
    PacedPeer peer(baud);
    std::map<Variant, std::unique_ptr<Client>> clients;
    for (const Variant variant : variants)
        clients[variant] = makeClient(variant, peer, baud);

    std::map<Variant, Samples> samples;
    const long exchanges = std::max(1L, roundTime / exchangeWireTime(baud));
    for (int round = 0; round < rounds; ++round)
        for (const Variant variant : variants)
            runRound(*clients[variant], peer, exchanges, samples[variant]);

    bool aimsMet = true;
    for (const Variant variant : variants)
        aimsMet = printLine(baud, variant, samples[variant]) && aimsMet;
    return aimsMet;
}

int run(const Options& options) {
    if (options.help) {
        std::cout << helpText;
        return 0;
    }
    printHeader();
    bool aimsMet = true;
    for (const long baud : baudRates)
        aimsMet = measure(baud, options.rounds) && aimsMet;
    printLegend();
    return options.check && !aimsMet ? 1 : 0;
}

}  // namespace
}  // namespace zlt::bench

int main(int argc, char** argv) {
    // The serial port's notifiers want an event dispatcher, as they have it in the panel.
    const QCoreApplication application(argc, argv);
    try {
        return zlt::bench::run(zlt::bench::parseOptions({argv + 1, argv + argc}));
    } catch (const std::invalid_argument& error) {
        std::cerr << "exchange_bench: " << error.what() << '\n';
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "exchange_bench: " << error.what() << '\n';
        return 1;
    }
}
