#pragma once

#include <QProcess>

#include "bench/Clients.h"

namespace zlt::bench {

/// Runs pyserial_client.py, which makes and times the exchanges of a round.
class PyserialClient final : public Client {
 public:
    PyserialClient(PacedPeer& peer, const std::string& python);
    ~PyserialClient() override;

    void runRound(long exchanges, Samples& samples) override;

 private:
    QProcess m_script;
};

}  // namespace zlt::bench
