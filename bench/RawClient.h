#pragma once

#include "bench/Clients.h"

namespace zlt::bench {

/// Writes the request and blocks in read until the carriage return has come.
class RawClient final : public Client {
 public:
    RawClient(PacedPeer& peer, long baud) : m_peer(peer), m_baud(baud) {}
    ~RawClient() override { RawClient::close(); }
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    void open() override;
    void close() override;
    bool exchange() override;

 private:
    PacedPeer& m_peer;
    long m_baud;
    int m_device = -1;
};

}  // namespace zlt::bench
