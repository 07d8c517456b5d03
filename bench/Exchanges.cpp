#include "bench/Exchanges.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <stdexcept>

#include "bench/Clients.h"

namespace zlt::bench {
namespace {

/// Of wire time. Short enough that a disturbance of the machine meets all clients.
constexpr std::chrono::milliseconds roundTime{400};
/// Without a wire an exchange takes the machine alone; so many make a round.
constexpr long unpacedExchanges = 2000;
/// The most that the panel may take, as a multiple of the C loop, where there is a wire.
constexpr double mostOfCLoop = 1.05;

/// The least part of the panel's exchange that is the wire's.
double leastShare(const Line& line) {
    if (line.baud <= 9600)
        return 0.98;
    return line.baud <= 38400 ? 0.955 : 0.90;
}

void printHeader() {
    std::printf("One exchange of %zu bytes out and %zu bytes in\n", request.size(), reply.size());
    std::printf("%8s %8s  %-12s %9s %5s %8s %10s %9s %7s%s\n", "baud", "wire ms", "client",
                "exchanges", "lost", "peer us", "median ms", "wire/this", "/C loop", "  aims");
}

/// Without a wire there is no such number.
std::string orNone(const Line& line, double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", number);
    return line.paced ? text : "-";
}

void printLine(const Line& line, Variant variant, const Samples& samples, Milliseconds cLoop,
               Judge& judge) {
    const Milliseconds wire = exchangeWireTime(line);
    const Milliseconds typical = median(samples.taken);
    const double share = wire / typical;
    const double ofCLoop = typical / cLoop;
    std::string verdicts;
    if (variant == Variant::panel) {
        if (line.paced) {
            verdicts = "  " + judge.atLeast(share, leastShare(line)) + ", ";
            verdicts += judge.atMost(ofCLoop, mostOfCLoop);
        }
        verdicts += judge.never(samples.lost > 0, ", exchanges LOST");
    }
    std::printf("%8s %8s  %-12s %9zu %5ld %8.0f %10.3f %9s %7.3f%s\n", line.name.data(),
                orNone(line, wire.count()).c_str(), nameOf(variant).data(), samples.taken.size(),
                samples.lost, Microseconds(median(samples.peerLate)).count(), typical.count(),
                orNone(line, share).c_str(), ofCLoop, verdicts.c_str());
    std::fflush(stdout);
}

void measure(const Line& line, int rounds, const std::string& python, Judge& judge) {
    PacedPeer peer(line);
    std::map<Variant, std::unique_ptr<Client>> clients;
    for (const Variant variant : variants)
        clients[variant] = makeClient(variant, peer, python);

    std::map<Variant, Samples> samples;
    const long exchanges =
        line.paced ? std::max(1L, roundTime / exchangeWireTime(line)) : unpacedExchanges;
    for (int round = 0; round < rounds; ++round)
        for (const Variant variant : variants) {
            peer.takeLateness();
            clients[variant]->runRound(exchanges, samples[variant]);
            const Times late = peer.takeLateness();
            auto& all = samples[variant].peerLate;
            all.insert(all.end(), late.begin(), late.end());
        }

    for (const Variant variant : variants)
        if (samples[variant].taken.empty())
            throw std::runtime_error("no exchange was answered: " + std::string(nameOf(variant)));
    const Milliseconds cLoop = median(samples[Variant::raw].taken);
    for (const Variant variant : variants)
        printLine(line, variant, samples[variant], cLoop, judge);
}

}  // namespace

void measureExchanges(int rounds, const std::string& python, Judge& judge) {
    printHeader();
    for (const Line& line : lines)
        measure(line, rounds, python, judge);
}

}  // namespace zlt::bench
