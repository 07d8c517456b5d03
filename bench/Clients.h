#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "bench/PacedPeer.h"

namespace zlt::bench {

/// What the exchanges of one client took over one line, all rounds together.
struct Samples {
    Times taken;
    long lost = 0;   ///< exchanges whose reply did not come in time
    Times peerLate;  ///< the part of each that is the peer's, not the client's
};

/// One way to make the exchange. Failures are thrown.
class Client {
 public:
    /// `peer` outlives the client.
    explicit Client(PacedPeer& peer) : m_peer(peer) {}
    virtual ~Client() = default;
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// Opens the device, makes so many exchanges after a few for warming up, and closes it.
    virtual void runRound(long exchanges, Samples& samples) = 0;

 protected:
    /// Exchanges of a round that are not counted: the first ones run on cold caches.
    static constexpr long warmUps = 3;

    PacedPeer& peer() { return m_peer; }

 private:
    PacedPeer& m_peer;
};

/// A client of this process, which makes one exchange after the other.
class StepClient : public Client {
 public:
    using Client::Client;

    void runRound(long exchanges, Samples& samples) final;

 private:
    /// Opens the device and drops what had arrived before.
    virtual void open() = 0;
    virtual void close() = 0;
    /// One exchange, checked, which tells the peer when the request has been written. False
    /// when the reply did not come in time.
    virtual bool exchange() = 0;

    /// Gets client and peer together again: the late reply must not answer the next request.
    void recover();
};

enum class Variant {
    panel,     ///< the panel's own exchange, whose wait wakes on data
    raw,       ///< blocking reads of the device in C: what the system can do
    pyserial,  ///< the usual serial library of scripts
    sleeps,    ///< the panel's exchange, but for plain sleeps in place of its wait
};

inline constexpr Variant variants[] = {Variant::panel, Variant::raw, Variant::pyserial,
                                       Variant::sleeps};

std::string_view nameOf(Variant variant);

/// `python` is an interpreter that has pyserial.
std::unique_ptr<Client> makeClient(Variant variant, PacedPeer& peer, const std::string& python);

}  // namespace zlt::bench
