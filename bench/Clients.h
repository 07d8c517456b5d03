#pragma once

#include <memory>
#include <string_view>

#include "bench/PacedPeer.h"

namespace zlt::bench {

/// One way to make the exchange. Failures are thrown.
class Client {
 public:
    virtual ~Client() = default;

    /// Opens the device and drops what had arrived before.
    virtual void open() = 0;
    virtual void close() = 0;
    /// One exchange, checked, which tells the peer when the request has been written. False
    /// when the reply did not come in time.
    virtual bool exchange() = 0;
};

enum class Variant {
    panel,   ///< the panel's own exchange, whose wait wakes on data
    sleeps,  ///< the same, but for plain sleeps in place of that wait
    raw,     ///< blocking reads of the device: what the system can do
};

inline constexpr Variant variants[] = {Variant::panel, Variant::sleeps, Variant::raw};

std::string_view nameOf(Variant variant);

/// `peer` outlives the client.
std::unique_ptr<Client> makeClient(Variant variant, PacedPeer& peer, long baud);

}  // namespace zlt::bench
